#include "day.h"

#include "works.h"

#include <QComboBox>
#include <QFile>
#include <sqlite3.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvora::test {
namespace {

/// A part of a sum in per cent, with two decimals rounded half up: of whole hundredths, so that nothing rounds before.
void share(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    const long long part = std::llround(sqlite3_value_double(values[0]) * 100);
    const long long all = std::llround(sqlite3_value_double(values[1]) * 100);
    const long long rounded = (2 * part * 100 * 100 + all) / (2 * all);
    const QByteArray text = QByteArray::number(rounded / 100) + '.' + QByteArray::number(100 + rounded % 100).last(2);
    sqlite3_result_text(context, text.constData(), -1, SQLITE_TRANSIENT);
}

void chance(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    auto* random = static_cast<QRandomGenerator*>(sqlite3_user_data(context));
    sqlite3_result_int(context, random->bounded(sqlite3_value_int(values[0])));
}

/// Steps a navigator from its first row to the one that its caption names.
void stepTo(const ScreenDriver& hand, const QString& navigator, const QString& name) {
    const ScreenDriver steps = hand.navigator(navigator);
    if (steps.enabled(u"First"_s)) {
        steps.press(u"First"_s);
    }
    // A group's name stands in front of its total weight, others at the end.
    const auto arrived = [&] {
        const QString caption = hand.text(navigator);
        return caption.endsWith(name) || caption.contains(u' ' + name + u" ["_s);
    };
    while (!arrived()) {
        steps.press(u"Next"_s);
    }
}

QString prepared(const QString& path) {
    const QString model = path + u".model"_s;
    QFile::remove(model);
    if (!QFile::copy(path, model)) {
        qFatal("no copy of the data file can be made");
    }
    return model;
}

void check(const QString& what, const QString& found, const QString& expected) {
    if (found != expected) {
        qFatal("%s: \"%s\", expected \"%s\"", qPrintable(what), qPrintable(found), qPrintable(expected));
    }
}

}  // namespace

// Names are not given again by the sampler of another day.
Day::Day(const QString& path, quint32 seed)
    : m_random(seed), m_names(static_cast<int>(seed % 1'000'000)), m_desk(path), m_reading(prepared(path)) {
    sqlite3_open(qPrintable(path + u".model"_s), &m_model);
    sqlite3_create_function(m_model, "below", 1, SQLITE_UTF8, &m_random, &chance, nullptr, nullptr);
    sqlite3_create_function(m_model, "share", 2, SQLITE_UTF8, nullptr, &share, nullptr, nullptr);
    sql(u"pragma temp_store = memory; pragma synchronous = off; pragma journal_mode = memory;"_s +
        QLatin1String(kChosen) + QLatin1String(kViews));
}

Day::~Day() {
    sqlite3_close(m_model);
}

std::vector<Day::Row> Day::sql(const QString& statements) {
    std::vector<Row> rows;
    const auto take = [](void* all, int count, char** cells, char** columns) {
        Row& row = static_cast<std::vector<Row>*>(all)->emplace_back();
        for (int i = 0; i < count; ++i) {
            if (cells[i] != nullptr) {
                row[QString::fromUtf8(columns[i])] = QString::fromUtf8(cells[i]);
            }
        }
        return 0;
    };
    if (sqlite3_exec(m_model, statements.toUtf8().constData(), take, &rows, nullptr) != SQLITE_OK) {
        qFatal("%s in\n%s", sqlite3_errmsg(m_model), qPrintable(statements));
    }
    return rows;
}

void Day::store() {
    QStringList rows = wholeFile(m_reading);
    rows.sort();
    m_contents.append(rows);
}

QString Day::doSomething() {
    sql(QLatin1String(kChosen));
    std::vector<const Work*> possible;
    for (const Work& work : kWorks) {
        possible.insert(possible.end(), static_cast<std::size_t>(work.share), &work);
    }
    std::vector<Row> rows;
    const Work* work = nullptr;
    while (rows.empty()) {
        work = possible[static_cast<std::size_t>(below(static_cast<int>(possible.size())))];
        rows = sql(u"select * from (%1) order by below(1000000) limit 1"_s.arg(QLatin1String(work->begin)));
    }
    Row& row = rows.front();
    const QStringList ends = {u""_s, u"'s"_s, u" & \\Co"_s, u" <b>%1"_s, u" Ж\"--"_s, u"_%*[y]"_s};
    row.try_emplace(u"n"_s, QString::number(++m_names) + ends[below(static_cast<int>(ends.size()))]);
    const auto filled = [&row](const char* text, const QString& quote) {
        QString all = QString::fromLatin1(text);
        for (const auto& [column, cell] : row) {
            all.replace(u'{' + column + u'}', QString(cell).replace(u'\'', quote));
        }
        return all;
    };
    const QString name = QString::fromLatin1(work->name);
    m_desk.dialogs.said.clear();
    m_contents.clear();
    store();
    const QString tab = QString::fromLatin1(work->tab);
    ScreenDriver hand = row.contains(u"at"_s) ? openOn(row[u"at"_s], work->place, tab) : open(work->place, tab);
    hand = *work->frame != '\0' ? hand.within(QString::fromLatin1(work->frame)) : hand;
    if (row.contains(u"list"_s)) {
        stepTo(hand, row[u"list"_s], row[u"row"_s]);
    }
    hand.enter(filled(work->steps, u"'"_s));
    if (row.contains(u"grid"_s)) {
        check(name, hand.rows(row[u"grid"_s]).join(u'\n'), row[u"shows"_s]);
    }
    const bool refused = row.contains(u"refused"_s);
    check(name, m_desk.dialogs.said.join(u'\n'), row[refused ? u"refused"_s : u"said"_s]);
    const QString change = filled(work->change, u"''"_s);
    const int times = refused                        ? 0
                      : change.contains(u"{each}"_s) ? static_cast<int>(sql(u"select * from chosen"_s).size())
                                                     : 1;
    for (int each = 1; each <= times; ++each) {
        for (const QString& part : QString(change).replace(u"{each}"_s, QString::number(each)).split(u";;"_s)) {
            sql(part);
            store();
        }
    }
    return name;
}

void Day::checkLists(const ScreenDriver& hand, int place) {
    const QString criterion = place < Composition || place > Search ? QString() : hand.text(u"Criterion"_s);
    for (const Offer& offer : kOffers) {
        const QLatin1String by(offer.criterion);
        const bool here = place >= offer.from && place <= offer.to && (by.isEmpty() || by == criterion);
        const auto* box = here ? qobject_cast<QComboBox*>(hand.field(QString::fromLatin1(offer.list))) : nullptr;
        if (box == nullptr) {
            continue;  // or a field of the same caption on the tab in front
        }
        QStringList offered;
        for (int i = 0; i < box->count(); ++i) {
            offered.append(box->itemText(i));
        }
        QStringList stored;
        for (const Row& row : sql(QString::fromLatin1(offer.rows))) {
            stored.append(row.at(u"name"_s));
        }
        offered.sort();
        stored.sort();
        check(u"%1 of screen %2"_s.arg(QLatin1String(offer.list)).arg(place), offered.join(u'|'), stored.join(u'|'));
    }
}

ScreenDriver Day::open(int place, const QString& tab) {
    const ScreenDriver old = m_desk.open(place);
    checkLists(old, place);
    // One that stands on a deleted operation stays until something was weighed for it.
    const bool stays =
        place == Composition && !sql(u"select * from stands except select * from fishoperation"_s).empty();
    if (!stays && below(10) == 0) {
        m_desk.front()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return m_desk.open(place, tab);
}

ScreenDriver Day::openOn(const QString& operation, int place, const QString& tab) {
    const ScreenDriver hand = open(place, {});
    if (place == Composition) {
        sql(u"delete from stands; insert into stands select * from fishoperation where optid = "_s + operation);
    }
    Row row =
        sql(u"select *, (select count(*) from known as o where o.criterion = k.criterion and o.value = k.value and"
            " o.optid < k.optid) as before from known as k where optid = %1 order by below(1000) limit 1"_s.arg(
                operation))
            .front();
    hand.choose(u"Criterion"_s, row[u"criterion"_s]);
    hand.choose(u"Value"_s, row[u"value"_s]);
    hand.press(place == Search ? u"SEARCH"_s : u"Search"_s);
    for (int i = 0; i < row[u"before"_s].toInt(); ++i) {
        hand.navigator(u"Result"_s).press(u"Next"_s);
    }
    hand.openTab(tab);
    return hand;
}

}  // namespace kelvora::test
