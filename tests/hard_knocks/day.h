#pragma once

#include "works.h"

#include <QComboBox>
#include <QFile>
#include <QRandomGenerator>
#include <sqlite3.h>

#include <map>

namespace kelvora::test {

inline void chance(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    auto* random = static_cast<QRandomGenerator*>(sqlite3_user_data(context));
    sqlite3_result_int(context, random->bounded(sqlite3_value_int(values[0])));
}

/// Steps a navigator from its first row to the one that its caption names.
inline void stepTo(const ScreenDriver& hand, const QString& navigator, const QString& name) {
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

inline void check(const QString& what, const QString& found, const QString& expected) {
    if (found != expected) {
        qFatal("%s: \"%s\", expected \"%s\"", qPrintable(what), qPrintable(found), qPrintable(expected));
    }
}

/// A sampler who does one thing after another at the real screens, open side by side, chosen by chance, and writes into
/// a model what the data file must hold after it. The model is a copy of the file, kept without any part of the
/// program.
class Day {
public:
    // Names are not given again by the sampler of another day.
    Day(const QString& path, quint32 seed) : m_random(seed), m_names(static_cast<int>(seed % 1'000'000)), m_desk(path) {
        const QString model = path + u".model"_s;
        QFile::remove(model);
        QFile::copy(path, model);
        m_reading.emplace(model);
        sqlite3_open(qPrintable(model), &m_model);
        sqlite3_create_function(m_model, "below", 1, SQLITE_UTF8, &m_random, &chance, nullptr, nullptr);
        sql("pragma temp_store = memory; pragma synchronous = off; pragma journal_mode = memory");
        sql(kChosen);
        sql(kViews);
    }
    ~Day() { sqlite3_close(m_model); }
    Day(const Day&) = delete;
    Day& operator=(const Day&) = delete;

    /// Does something and returns what it was. What the screens show and say is checked against the model.
    QString doSomething() {
        m_contents.clear();
        store();
        sql(kChosen);
        std::vector<Row> rows;
        const Work* work = nullptr;
        while (rows.empty()) {
            work = &kWorks.at(static_cast<std::size_t>(below(static_cast<int>(kWorks.size()))));
            if (below(kMost) < work->share) {
                rows = sql(u"select * from (%1) order by below(1000000) limit 1"_s.arg(QLatin1String(work->begin)));
            }
        }
        Row& row = rows.front();
        const QStringList ends = {u""_s, u"'s"_s, u" & \\Co"_s, u" <b>%1"_s, u" Ж\"--"_s, u"_%*[y]"_s};
        row.try_emplace(u"n"_s, QString::number(++m_names) + ends[below(static_cast<int>(ends.size()))]);
        const QString name = QString::fromLatin1(work->name);
        check(name, enter(*work, row), row[row.contains(u"refused"_s) ? u"refused"_s : u"said"_s]);
        if (!row.contains(u"refused"_s)) {
            change(filled(work->change, row, u"''"_s));
        }
        return name;
    }
    /// The rows of the model, and those it had on the way: some things are stored in parts, each for good.
    [[nodiscard]] const QList<QStringList>& contents() const { return m_contents; }

private:
    /// Cells by their columns, without nulls.
    using Row = std::map<QString, QString>;

    static QString filled(const char* text, const Row& row, const QString& quote) {
        QString all = QString::fromLatin1(text);
        for (const auto& [column, cell] : row) {
            all.replace(u'{' + column + u'}', QString(cell).replace(u'\'', quote));
        }
        return all;
    }

    /// Returns what was said.
    QString enter(const Work& work, Row& row) {
        m_desk.dialogs.said.clear();
        const QString tab = QString::fromLatin1(work.tab);
        ScreenDriver hand = row.contains(u"at"_s) ? openOn(row[u"at"_s], work.place, tab) : open(work.place, tab);
        hand = *work.frame != '\0' ? hand.within(QString::fromLatin1(work.frame)) : hand;
        if (row.contains(u"list"_s)) {
            stepTo(hand, row[u"list"_s], row[u"row"_s]);
        }
        hand.enter(filled(work.steps, row, u"'"_s));
        if (row.contains(u"grid"_s)) {
            check(QString::fromLatin1(work.name), hand.rows(row[u"grid"_s]).join(u'\n'), row[u"shows"_s]);
        }
        return m_desk.dialogs.said.join(u'\n');
    }

    void change(const QString& statements) {
        const auto times = statements.contains(u"{each}"_s) ? sql("select * from chosen").size() : 1;
        for (std::size_t each = 1; each <= times; ++each) {
            for (const QString& part : QString(statements).replace(u"{each}"_s, QString::number(each)).split(u";;"_s)) {
                sql(part);
                store();
            }
        }
    }

    std::vector<Row> sql(QAnyStringView text) {
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
        const QByteArray statements = text.toString().toUtf8();
        if (sqlite3_exec(m_model, statements.constData(), take, &rows, nullptr) != SQLITE_OK) {
            qFatal("%s in\n%s", sqlite3_errmsg(m_model), statements.constData());
        }
        return rows;
    }

    void store() {
        QStringList rows = wholeFile(*m_reading);
        rows.sort();
        m_contents.append(rows);
    }

    [[nodiscard]] int below(int limit) { return m_random.bounded(limit); }

    void checkLists(const ScreenDriver& hand, int place) {
        const QString criterion = place < Composition || place > Search ? QString() : hand.text(u"Criterion"_s);
        for (const Offer& offer : kOffers) {
            const QString name = QString::fromLatin1(offer.list);
            const bool values = offer.place == Search;
            const bool here = values ? name == criterion : offer.place == place;
            const QString list = values ? u"Value"_s : name;
            if (!here || qobject_cast<QComboBox*>(hand.field(list)) == nullptr) {
                continue;  // or a field of the same caption on the tab in front
            }
            QStringList offered = hand.options(list);
            QStringList stored;
            for (const Row& row : sql(u"select "_s + QLatin1String(offer.rows))) {
                stored.append(row.begin()->second);
            }
            offered.sort();
            stored.sort();
            check(u"%1 of screen %2"_s.arg(name).arg(place), offered.join(u'|'), stored.join(u'|'));
        }
    }

    /// Opens a screen, closed before now and then.
    ScreenDriver open(int place, const QString& tab) {
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

    /// Opens a screen with an operation on it, found by one thing or another that it is known by.
    ScreenDriver openOn(const QString& operation, int place, const QString& tab) {
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

    QRandomGenerator m_random;
    int m_names;
    sqlite3* m_model = nullptr;
    Desk m_desk;
    std::optional<Connection> m_reading;  ///< of the model
    QList<QStringList> m_contents;
};

}  // namespace kelvora::test
