#include "records/species_import.h"

using namespace Qt::StringLiterals;

namespace kelvora {

const ImportLayout& speciesLayout() {
    static const ImportLayout layout = {{{u"Family"_s, u"Family"_s, 100},
                                         {u"Genus"_s, u"Genus"_s, 133},
                                         {u"Species"_s, u"Species"_s, 100},
                                         {u"Common name"_s, u"Common name"_s, 113}},
                                        {4}};
    return layout;
}

}  // namespace kelvora
