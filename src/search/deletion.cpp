#include "search/deletion.h"

#include "data/transaction.h"

#include <array>

namespace kelvora {

void deleteOperation(Connection& connection, const StoredOperation& operation) {
    static constexpr std::array samples = {Literal("delete from gonad where optid = "),
                                           Literal("delete from gonad_detail where optid = "),
                                           Literal("delete from group_composition where optid = "),
                                           Literal("delete from group_main where optid = "),
                                           Literal("delete from length where optid = "),
                                           Literal("delete from length_detail where optid = ")};
    Transaction transaction(connection);
    requireOperation(connection, operation);
    connection.execute(Sql("delete from fishoperation where optid = ") << operation.number);
    for (const Literal& sample : samples) {
        connection.execute(Sql(sample) << operation.number);
    }
    transaction.commit();
}

void deleteGonadSample(Connection& connection, const StoredOperation& operation, int species) {
    Transaction transaction(connection);
    requireOperation(connection, operation);
    connection.execute(Sql("delete from gonad where optid = ") << operation.number << " and spid = " << species);
    connection.execute(Sql("delete from gonad_detail where optid = ") << operation.number << " and spid = " << species);
    transaction.commit();
}

}  // namespace kelvora
