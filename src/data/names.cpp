#include "data/names.h"

#include <algorithm>

namespace kelvora {
namespace {

/// Whether a text has a letter beyond A to Z that comes large and small. Most alphabets of the coasts have none.
bool hasCaseBeyondAscii(const QString& text) {
    return std::ranges::any_of(
        text, [](QChar c) { return c.unicode() > 127 && (c.isSurrogate() || c.toUpper() != c.toLower()); });
}

}  // namespace

ResultSet rowsNamed(Connection& connection, const Sql& query, std::initializer_list<Named> names) {
    Sql exact = query;
    for (const Named& name : names) {
        exact = std::move(exact) << name.column << " = " << name.text << " and ";
    }
    ResultSet found = connection.query(std::move(exact) << "1");
    const bool mayDiffer = std::ranges::any_of(names, hasCaseBeyondAscii, &Named::text);
    if (!found.isEmpty() || !mayDiffer) {
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
    return !connection.query(query).isEmpty();
}

}  // namespace kelvora
