#include "records/species_import.h"

#include "data/transaction.h"
#include "records/species.h"

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

ImportOutcome storeSpecies(Connection& connection, const std::vector<CsvRecord>& species,
                           const std::function<void()>& count) {
    ImportOutcome outcome;
    Transaction transaction(connection);
    std::optional<int> last;
    for (const CsvRecord& record : species) {
        const QStringList& fields = record.fields;
        const auto stored = AddSpecies(connection, {fields[0], fields[1], fields[2], fields[3]}, last);
        last = stored ? stored : last;
        ++(stored ? outcome.stored : outcome.known);
        count();
    }
    transaction.commit();
    return outcome;
}

}  // namespace kelvora
