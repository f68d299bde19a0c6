#include "reference/species_import.h"

using namespace Qt::StringLiterals;

namespace kelvora {

const ImportLayout& speciesLayout() {
    static const ImportLayout layout = {{{u"Family"_s, u"Family"_s, 1500},
                                         {u"Genus"_s, u"Genus"_s, 2000},
                                         {u"Species"_s, u"Species"_s, 1500},
                                         {u"Common name"_s, u"Common name"_s, 1700}},
                                        {4}};
    return layout;
}

}  // namespace kelvora
