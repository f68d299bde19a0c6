#include "search/deletion.h"

#include "data/transaction.h"

#include <array>

namespace kelvora {

bool deleteOperation(Connection& connection, int operation) {
    static constexpr std::array samples = {Literal("delete from gonad where optid = "),
                                           Literal("delete from gonad_detail where optid = "),
                                           Literal("delete from group_composition where optid = "),
                                           Literal("delete from group_main where optid = "),
                                           Literal("delete from length where optid = "),
                                           Literal("delete from length_detail where optid = ")};
    Transaction transaction(connection);
    const int operations = connection.execute(Sql("delete from fishoperation where optid = ") << operation);
    for (const Literal& sample : samples) {
        connection.execute(Sql(sample) << operation);
    }
    transaction.commit();
    return operations > 0;
}

void deleteGonadSample(Connection& connection, int operation, int species) {
    Transaction transaction(connection);
    connection.execute(Sql("delete from gonad where optid = ") << operation << " and spid = " << species);
    connection.execute(Sql("delete from gonad_detail where optid = ") << operation << " and spid = " << species);
    transaction.commit();
}

}  // namespace kelvora
