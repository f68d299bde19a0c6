#include "data/crosstab.h"
#include "data/numbers.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_statements {

/// Statements, and the numbers and crosstabs that are made of them; a failure leaves nothing open.
class TestStatements : public QObject {
    Q_OBJECT

    std::unique_ptr<test::TemporaryStore> m_store;
    std::unique_ptr<Connection> m_other;  ///< another program's

    static Sql insert(int key) { return Sql("insert into state(stateid) values(") << key << ")"; }
    /// Why something failed; empty if it did not.
    static QString failure(const std::function<void()>& action) {
        try {
            action();
        } catch (const DataError& e) {
            return QString::fromUtf8(e.what());
        }
        return {};
    }

private Q_SLOTS:
    void init() {
        m_store = std::make_unique<test::TemporaryStore>();
        m_other = std::make_unique<Connection>(m_store->path());
    }
    /// Whatever happened: nobody holds the file.
    void cleanup() {
        QCOMPARE(failure([this] { m_other->execute(insert(99)); }), QString());
    }

    void failures() {
        const QString unread = u"The data could not be read: "_s;
        const QString other = u"the tables of the data file are not as they should be (no such table: nowhere)."_s;
        QCOMPARE(failure([this] { m_store->rows("select * from nowhere"); }), unread + other);
        m_store->execute("create table strict_one(id integer not null check(id > 0)) strict");
        struct Refused {
            Literal statement;
            QString reason;
        };
        const Refused all[] = {
            {"insert into nowhere values('some text')", other},
            {"insert into strict_one values(null)", u"a value that the data file asks for is missing."_s},
            {"insert into strict_one values('x')", u"a value is not of the kind that the data file takes."_s},
            {"insert into strict_one values(0)", u"a rule that was laid into the data file does not allow it."_s}};
        for (const auto& [statement, reason] : all) {
            QCOMPARE(failure([&, row = statement] { m_store->execute(row); }),
                     u"Nothing was stored or deleted: "_s + reason);
        }

        // A save outlives a power cut, the deletion of its journal included.
        QCOMPARE(m_store->rows("pragma synchronous"), QStringList{u"3"_s});
        // Another program reads at the commit.
        m_other->execute(Sql("begin"));
        QCOMPARE(test::rows(*m_other, Sql("select * from state")), QStringList());
        const auto save = [this] { m_store->db().execute(insert(1)); };
        QVERIFY(failure(save).contains(u"another program is using the data file"));
        m_other->execute(Sql("commit"));
        QCOMPARE(test::rows(*m_other, Sql("select * from state")), QStringList());

        const QString nowhere = m_store->file(u"nowhere/data.sqlite"_s);
        QVERIFY(failure([&] { const Connection none(nowhere); }).contains(nowhere));
        QVERIFY(QFile::rename(m_store->path(), m_store->file(u"moved"_s)));
        QVERIFY(QFile::copy(m_store->file(u"moved"_s), m_store->path()));
        QVERIFY(failure(save).contains(u"was moved, deleted or replaced while it was open"));
        init();
    }

    /// A statement that comes again with other values is not prepared again: nothing of the former ones may stay.
    void theSameStatementAgain() {
        const auto insertFish = [&](int number, const QString& name, double interval) {
            m_store->db().execute(Sql("insert into fish(fishno, genus, fishname, classinterval) values (")
                                  << number << ", 'G', " << name << "," << interval << ")");
        };
        insertFish(1, u"o'year ? \"[x]%;"_s, 3);
        QVERIFY_EXCEPTION_THROWN(insertFish(1, u"again"_s, 4), DataError);
        insertFish(2, u"a"_s + QChar(u'\0') + u'b', 0.1);  // no other program expects the character in the middle
        insertFish(3, QString(), -1e15);
        QCOMPARE(m_store->rows("select fishno, fishname, classinterval / 2 from fish order by fishno"),
                 (QStringList{u"1|o'year ? \"[x]%;|1.5"_s, u"2|ab|0.05"_s, u"3||-500000000000000"_s}));
        const auto found = [&](const Sql& condition) {
            return m_store->rows(Sql("select fishno from fish where ") << condition).join(u' ');
        };
        QCOMPARE(found(Sql("fishname = ") << u"O'YEAR ? \"[x]%;"_s), u"1"_s);
        QCOMPARE(found(Sql("fishname = ") << u"again"_s), QString());
        QCOMPARE(found(Sql("classinterval = ") << 0.1 << " and " << (Sql("fishno = ") << 2)), u"2"_s);
        QCOMPARE(m_store->rows(Sql("select ") << 7.0 << " / 2, " << 7.5 << " / 2, " << QDate(2026, 11, 22)),
                 QStringList{u"3|3.75|2026-11-22"_s});
        QVERIFY_EXCEPTION_THROWN(Sql("select ") << std::numeric_limits<double>::infinity(), std::invalid_argument);
    }

    void fromText() {
        const QString zeros(400, u'0');
        // A text, and the numbers that it is and that it begins with.
        const std::vector<std::pair<QString, QString>> texts = {
            {u" -10.25 "_s, u"-10.25 -10.25"_s},
            {u"1.E3"_s, u"1000 1000"_s},
            {u"-1e400"_s, u"none -inf"_s},
            {u"1.7976931348623157e308"_s, u"none inf"_s},  // too large with fifteen digits
            {u'.' + zeros + u'1', u"0 0"_s},
            {u'1' + zeros + u"e-400"_s, u"1 1"_s},
            {u" 3.5 kg"_s, u"none 3.5"_s},
            {u"1e+"_s, u"none 1"_s},
        };
        const auto written = [](double value) { return QString::number(value, 'g', 15); };
        for (const auto& [text, expected] : texts) {
            const std::optional<double> number = toNumber(text);
            QCOMPARE((number ? written(*number) : u"none"_s) + u' ' + written(leadingNumber(text)), expected);
        }
        for (const QString& text : u"|.|--1|abc|e5|0x10|inf|nan|५"_s.split(u'|')) {
            QVERIFY2(!toNumber(text) && leadingNumber(text) == 0, qPrintable(text));
        }
    }

    void toText() {
        const std::vector<std::tuple<double, QString, QString>> numbers = {
            {-0.0, u"0"_s, u"0.00"_s},
            {0.1 + 0.2, u"0.3"_s, u"0.30"_s},
            {-1.005, u"-1.005"_s, u"-1.01"_s},
            {-0.004, u"-0.004"_s, u"0.00"_s},
            {1.0 / 3, u"0.333333333333333"_s, u"0.33"_s},
            {1234567890123456.0, u"1234567890123460"_s, u"1234567890123460.00"_s},
            {1e21, u"1e+21"_s, u"1000000000000000000000.00"_s},
            {1e-9, u"0.000000001"_s, u"0.00"_s},
            {1e-10, u"1e-10"_s, u"0.00"_s},
        };
        for (const auto& [value, plain, rounded] : numbers) {
            QCOMPARE(plainText(value) + u' ' + twoDecimals(value), plain + u' ' + rounded);
        }
    }

    void crosstabs() {
        const QVariant null;
        // Of texts that differ in letter case only, the first one found is shown.
        const ResultSet table = crosstab({{u"Row"_s},
                                          {{u"Y"_s, 10.0, -2.0},
                                           {u"x"_s, qlonglong{2}, 0.1},
                                           {u"X"_s, 2.0, 0.2},
                                           {u"y"_s, u"B"_s, null},
                                           {u"y"_s, u"b"_s, qlonglong{4}},
                                           {null, null, 1.0}}},
                                         1);
        QStringList cells(table.columns.begin(), table.columns.end());
        for (const auto& row : table.rows) {
            std::ranges::transform(row, std::back_inserter(cells), displayText);
        }
        QCOMPARE(cells.join(u'|'), u"Row|<>|2|10|B||1||||x||0.3|||Y|||-2|4"_s);
    }
};

KELVORA_TEST(TestStatements, "statements");

}  // namespace kelvora::test_statements

#include "test_statements.moc"
