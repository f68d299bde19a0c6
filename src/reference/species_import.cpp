#include "reference/species_import.h"

namespace kelvora {

const ImportLayout& speciesLayout() {
    static const ImportLayout layout = {{{u"Family"_qs, u"Family"_qs, 1500},
                                         {u"Genus"_qs, u"Genus"_qs, 2000},
                                         {u"Species"_qs, u"Species"_qs, 1500},
                                         {u"Common name"_qs, u"Common name"_qs, 1700}},
                                        {4}};
    return layout;
}

}  // namespace kelvora
