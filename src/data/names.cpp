#include "data/names.h"

#include <algorithm>

namespace kelvora {
namespace {

/// Whether a text has a letter beyond A to Z that comes large and small. Most alphabets of the coasts have none.
bool hasCaseBeyondAscii(const QString& text) {
    return std::ranges::any_of(
        text, [](QChar c) { return c.unicode() > 127 && (c.isSurrogate() || c.toUpper() != c.toLower()); });
}

bool mayDiffer(std::initializer_list<Named> names) {
    return std::ranges::any_of(names, hasCaseBeyondAscii, &Named::text);
}

Sql exactly(Sql query, std::initializer_list<Named> names) {
    for (const Named& name : names) {
        query = std::move(query) << name.column << " = " << name.text << " and ";
    }
    return std::move(query) << "1";
}

}  // namespace

ResultSet rowsNamed(Connection& connection, const Sql& query, std::initializer_list<Named> names) {
    ResultSet found = connection.query(exactly(query, names));
    if (!found.isEmpty() || !mayDiffer(names)) {
        return found;
    }
    const ResultSet all = connection.query(Sql(query) << "1");
    for (int row = 0; row < all.rowCount(); ++row) {
        const auto matches = [&](const Named& name) {
            return sameName(all.text(row, QString::fromUtf8(name.column.text())), name.text);
        };
        if (std::ranges::all_of(names, matches)) {
            found.rows.push_back(all.rows[static_cast<std::size_t>(row)]);
        }
    }
    return found;
}

bool finds(Connection& connection, const Sql& query) {
    const ResultSet found = connection.query(Sql("select exists(") << query << ")");
    return found.rows.front().front().toBool();
}

bool findsNamed(Connection& connection, const Sql& query, std::initializer_list<Named> names) {
    return mayDiffer(names) ? !rowsNamed(connection, query, names).isEmpty() : finds(connection, exactly(query, names));
}

}  // namespace kelvora
