#include "operations/detail_fields.h"

#include "controls/fields.h"
#include "data/dates.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

QString detailText(const Detail& detail, const ResultSet& result, int row) {
    const QString text = operationText(result, row, detail.column);
    return detail.minutes.isEmpty() ? text : u"Dec "_s + text + u" Min "_s + operationText(result, row, detail.minutes);
}

}  // namespace

QString operationText(const ResultSet& result, int row, const QString& column) {
    return column == u"optdate" ? shortDate(result.date(row, column)) : result.text(row, column);
}

void DetailFields::add(QGridLayout* form, int column, const std::vector<Detail>& details) {
    int line = 0;
    for (const Detail& detail : details) {
        auto* label = new ValueLabel;
        addField(form, line++, column, detail.caption, label);
        m_shown.push_back({label, detail});
    }
}

void DetailFields::fill(const ResultSet& result, int row) const {
    for (const Shown& shown : m_shown) {
        shown.label->setText(detailText(shown.detail, result, row));
    }
}

void DetailFields::clear() const {
    for (const Shown& shown : m_shown) {
        shown.label->clear();
    }
}

}  // namespace kelvora
