#include "data/csv_reader.h"
#include "data/numbers.h"
#include "records/composition.h"
#include "records/gonad_store.h"
#include "records/keys.h"
#include "records/length_sample.h"
#include "records/operation.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

#include <ranges>

using namespace Qt::StringLiterals;

namespace kelvora::test_rules {

/// The limits of what may be entered, and the arithmetic, without a window.
class TestRules : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keys() {
        struct Key {
            int (*next)(Connection&);
            Literal insert;
            int first = 1;
        };
        const Key all[] = {
            {nextState, "insert into state(stateid) values("},
            {nextSamplingPort, "insert into samplingport(samplingid) values("},
            {nextGear, "insert into Fishing_gear(gearid) values("},
            {nextMethod, "insert into Fishing_method(methodid) values("},
            {nextSpecies, "insert into fish(fishno) values("},
            {nextOperation, "insert into fishoperation(optid) values("},
            {[](Connection& db) { return nextGroup(db, 7); }, "insert into group_main(optid, groupid) values(7,", 2},
        };
        test::TemporaryStore store;
        store.execute("insert into group_main(optid, groupid) values(8, 32767)");
        for (const auto& [next, insert, first] : all) {
            QCOMPARE(next(store.db()), first);
            store.db().execute(Sql(insert) << kLargestKey - 1 << ")");
            QCOMPARE(next(store.db()), kLargestKey);
            store.db().execute(Sql(insert) << kLargestKey << ")");
            QVERIFY_EXCEPTION_THROWN(next(store.db()), DataError);
        }
        store.execute("delete from Fishing_gear where gearid = 32766");
        QCOMPARE(nextGearByCount(store.db()), 2);
        store.execute(
            "with recursive n(i) as (select 5 union all select i + 1 from n where i < 32770)"
            " insert into gonad_detail(optid, spid, samplingno) select 7, 1, i from n");
        store.execute("insert into gonad_detail(optid, spid, samplingno) values (7, 2, 1), (8, 1, 1)");
        QCOMPARE(nextFish(store.db(), 7, 1), kLargestKey);
        QCOMPARE(nextFish(store.db(), 8, 2), 1);
    }

    void longitudes() {
        OperationEntry entry;
        entry.latitudeDec = entry.latitudeMin = entry.longitudeMin = u"0"_s;
        entry.state = entry.port = entry.area = entry.registerId = u"x"_s;
        for (const auto& [degrees, outside] :  // 0 is not recorded
             {std::pair{u"0.0"_s, false},
              {u"92"_s, false},
              {u"125"_s, false},
              {u"91.99"_s, true},
              {u"125.01"_s, true}}) {
            entry.longitudeDec = degrees;
            QCOMPARE(refusalOf(entry)->message.contains(u"between 92-125"), outside);
        }
    }

    void lengthClasses() {
        for (const double interval : {0.1, 0.25, 0.3, 0.7, 1.1, 3.3}) {
            for (int i = 0; i < kTableClasses; ++i) {
                const QString limit = plainText(i * interval);
                const auto found = classHolding(toNumber(limit).value(), interval);
                QVERIFY2(found, qPrintable(limit));
                QCOMPARE(plainText(found->lower), limit);
                QCOMPARE(plainText(found->upper), plainText((i + 1) * interval));
            }
        }
        const std::vector<std::tuple<double, double, QString>> lengths = {{11.999999, 2, u"10-12 11"_s},
                                                                          {0.1 + 0.2, 0.1, u"0.3-0.4 0.35"_s},
                                                                          {95.9, 2, u"94-96 95"_s},
                                                                          {96, 2, u"none"_s},
                                                                          {-0.1, 2, u"none"_s}};
        for (const auto& [length, interval, expected] : lengths) {
            const auto found = classHolding(length, interval);
            QCOMPARE(found
                         ? plainText(found->lower) + u'-' + plainText(found->upper) + u' ' + plainText(found->middle())
                         : u"none"_s,
                     expected);
        }
    }

    void arithmetic() {
        QCOMPARE(raisingFactor(100, 3), 33.33);
        QCOMPARE(raisingFactor(2.01, 2), 1.01);  // half a hundredth goes up
        std::vector<GonadFish> fish(4);
        fish[0].bw = u"1000.5"_s;
        fish[1].bw = u"heavy"_s;
        fish[2].bw = u"4.5 g"_s;
        QCOMPARE(samplingWeightText(bodyWeightSum(fish)), u"1.01"_s);  // 1.005 kg
        for (const auto& [gonad, body, index] : {std::tuple{20.0, 300.0, 6.66666666666667},
                                                 {0.2, 112.0, 0.178571428571429},
                                                 {0.07, 1.0, 7.0},
                                                 {12.0, 0.0, -1.0},
                                                 {12.0, -3.0, -1.0},
                                                 {1e300, 1e-300, -1.0}}) {
            QCOMPARE(gonadoSomaticIndex(gonad, body).value_or(-1), index);
        }
        // What a file may hold: a stage with its name, a number with a unit, none at all, one too large.
        const GonadFish odd = {u"152mm"_s, u""_s, u"1e999"_s, u" 7.50"_s, u"50"_s, {}, u"3-Ripe"_s, u"1"_s};
        QStringList stored;
        for (const FishColumn& column : kFishFields) {
            stored.append(plainText(storedNumber(odd, column.field)));
        }
        QCOMPARE(stored.join(u' '), u"152 0 0 7.5 50 0 3 1"_s);
    }

    void lengthStarts() {
        // The boxes of a length sample that is started, parted by blanks, and which of them is asked for again.
        for (const auto& [boxes, asked] : {std::pair{u"2 0 95.9"_s, -1},
                                           {u"0 0 0"_s, LengthInterval},
                                           {u"1e307 0 0"_s, LengthInterval},
                                           {u"2 -0.1 10"_s, LengthWeight},
                                           {u"2 0 -0.1"_s, LengthLowerLimit}}) {
            const QStringList box = boxes.split(u' ');
            const auto refusal = startRefusal({true, true, box[0], box[1], box[2]});
            QCOMPARE(boxes + QString::number(refusal ? refusal->field : -1), boxes + QString::number(asked));
        }
    }

    void fishFiles() {
        const QByteArray header = "TL,BL,FL,SL,BW,SEX,Stage,GW\n";
        const QByteArray first = "152,130,141,128,48.5,F,2,1.2\n";
        const QByteArray second = "160,138,149,135,55,m,1,0.4";
        const QString two = u"152|130|141|128|48.5|Female|2|1.2 160|138|149|135|55|Male|1|0.4"_s;
        const std::vector<std::pair<QByteArray, QString>> files = {
            {header + "152,130,141,128\n48.5,F,2,1.2\n" + second, two},
            {header + "\n" + first + ",,,, ,,,\n" + second + "\r\n\r\n\n \n", two},
            {"a,b,c,d,e,sex,stage,GW\n" + first + second, two},
            {header + "long,,-3,0x1F,0,J,\"3-Ripe\nlate\",\n", u"long||-3|0x1F|0|None|3-Ripe\nlate|"_s},
            {header + QByteArray("1,1,1,1,1,MALe,1,1\n").repeated(32'767),
             u"1|1|1|1|1|None|1|1 "_s.repeated(32'767).chopped(1)},
            {header + QByteArray("1,1,1,1,1,F,1,1\n").repeated(32'768), u"Line 32769: more than 32,767 fish"_s},
            {"GW,TL,BL,FL,SL,BW,SEX,Stage\n" + first,
             u"Line 1: none of the names TL,BL,FL,SL,BW,SEX,Stage,GW is in its place"_s},
            {header + first + "160,138\n149,135,55\n", u"Line 3: 2 fields, not 8"_s},
            {header + first.trimmed() + ",\n" + second, u"Line 2: 9 fields, not 8"_s},
            {"TL;BL;FL\n", u"Line 1: the fields are parted by semicolons, not by commas"_s},
        };
        for (const auto& [bytes, expected] : files) {
            QStringList found;
            try {
                CsvReader csv(bytes);
                FishReader reader(csv);
                std::optional<GonadFish> one;
                for (bool more = reader.readHeader(); more && (one = reader.next());) {
                    QStringList fields;
                    for (const FishColumn& column : kFishFields) {
                        fields.append(*one.*column.field);
                    }
                    found.append(fields.join(u'|'));
                }
            } catch (const FormatFault& fault) {
                found = {QString::fromUtf8(fault.what()).section(u". Nothing"_s, 0, 0)};
            }
            QCOMPARE(found.join(u' '), expected);
        }
    }

    /// Fish that were really examined, beside results that were computed outside of the program.
    void fishOfSurveys() {
        const auto path = [](const QString& name) { return u"" KELVORA_TEST_FILES "/"_s + name; };
        test::TemporaryStore store;
        store.addReferenceRows();
        store.addOperation(1, 2, u"2008-07-15"_s, 3, 80, u"Sea Star"_s, u"A1"_s);
        const StoredOperation operation = storedOperation(store.db(), 1).value();
        for (const CsvRecord& record : readCsv(CsvReader(path(u"gonad_summary.csv"_s))) | std::views::drop(1)) {
            const QStringList& summary = record.fields;
            CsvReader csv(path(summary[0]));
            FishReader reader(csv);
            QVERIFY(reader.readHeader());
            GonadSample sample{operation, {2, u"Upeneus vittatus"_s}, 0, {}};
            while (const auto fish = reader.next()) {
                sample.fish.push_back(*fish);
            }
            sample.samplingWeight = samplingWeightText(bodyWeightSum(sample.fish)).toDouble();
            StoredPart part;
            storeGonadSample(store.db(), sample, part, [] {});
            const QString stages = store.rows("select stage, count(*) from gonad_detail group by stage").join(u' ');
            QCOMPARE(store.rows("select count(*), sum(sex = 'Female'), sum(sex = 'Male'), sum(sex = 'None'),"
                                " sum(gsi is null), count(gsi) from gonad_detail") +
                         QStringList{QString(stages).replace(u'|', u':')} + store.rows("select * from gonad"),
                     (QStringList{(summary.mid(1, 5) + summary.mid(7, 1)).join(u'|'), summary[13],
                                  u"1|2|"_s + plainText(twoDecimals(summary[14].toDouble() / 1000).toDouble())}));
            QStringList everyFish;
            for (const CsvRecord& fish : readCsv(CsvReader(path(u"gonad_gsi_every_fish.csv"_s)))) {
                everyFish += fish.fields[0] == summary[0] ? QStringList{fish.fields.mid(1).join(u'|')} : QStringList();
            }
            // Two of the files hold no gonad weights, and so no index.
            QVERIFY(everyFish == store.rows("select samplingno, sex, stage, bw, gw, gsi from gonad_detail") ||
                    (everyFish.isEmpty() && summary[9] == u"0"));
            deleteGonadSample(store.db(), operation, sample.species);
        }
    }
};

KELVORA_TEST(TestRules, "rules");

}  // namespace kelvora::test_rules

#include "test_rules.moc"
