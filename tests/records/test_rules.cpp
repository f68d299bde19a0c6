#include "data/csv_reader.h"
#include "data/numbers.h"
#include "records/composition.h"
#include "records/gonad_fish.h"
#include "records/keys.h"
#include "records/length_sample.h"
#include "records/operation.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QTest>

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
        for (const Key& key : all) {
            QCOMPARE(key.next(store.db()), key.first);
            store.db().execute(Sql(key.insert) << kLargestKey - 1 << ")");
            QCOMPARE(key.next(store.db()), kLargestKey);
            store.db().execute(Sql(key.insert) << kLargestKey << ")");
            QVERIFY_EXCEPTION_THROWN(key.next(store.db()), DataError);
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

    void operations() {
        using Entry = OperationEntry;
        const QString longitude = u"Dec of Longtitude between 92-125"_s;
        const std::vector<std::tuple<QString Entry::*, QString, QString>> limits = {
            {&Entry::latitudeDec, u"25"_s, {}},
            {&Entry::latitudeDec, u"25.5"_s, u"Dec of Latitude between 0-25"_s},
            {&Entry::latitudeDec, u"12N"_s, u"Please input latitude in number"_s},
            {&Entry::latitudeMin, u"60"_s, {}},
            {&Entry::latitudeMin, u"60.5"_s, u"Min of Latitude between 0-60"_s},
            {&Entry::longitudeMin, u"-1"_s, u"Min of Longtitude between 0-60"_s},
            {&Entry::longitudeDec, u"0.0"_s, {}},  // not recorded
            {&Entry::longitudeDec, u"91.99"_s, longitude},
            {&Entry::longitudeDec, u"125"_s, {}},
            {&Entry::longitudeDec, u"125.01"_s, longitude},
            {&Entry::totalCatch, u" 0.00 "_s, u"Please input Estimate Total Catch(kg/trip)"_s},
        };
        OperationEntry right;
        right.latitudeDec = right.latitudeMin = right.longitudeDec = right.longitudeMin = u"0"_s;
        right.bottomDepth = right.fishingDepth = right.hauls = right.duration = u"0"_s;
        right.state = right.port = right.area = right.registerId = right.method = u"x"_s;
        right.totalCatch = u"0.5"_s;
        QVERIFY(!refusalOf(right));
        for (const auto& [field, text, message] : limits) {
            OperationEntry entry = right;
            entry.*field = text;
            const auto refusal = refusalOf(entry);
            QCOMPARE(text + (refusal ? refusal->message : QString()), text + message);
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
                                                                          {0.29, 0.1, u"0.2-0.3 0.25"_s},
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

    /// The boxes of a length sample that is started, parted by blanks, and what is said.
    void lengthStarts() {
        const QString interval = u"Please input class interval: a number greater than 0 (decimal point, no comma)"_s;
        const QString weight = u"Please input sampling weight: a number not below 0 (decimal point, no comma)"_s;
        const QString limit = u"Please input lower limit: a number from 0 to below 96 (decimal point, no comma)"_s;
        const std::pair<QString, QString> starts[] = {
            {u"2 0 95.9"_s, {}},      {u"0 0 0"_s, interval},  {u"2cm 0 0"_s, interval}, {u"1e307 0 0"_s, interval},
            {u"2 -0.1 10"_s, weight}, {u"2 1,5 10"_s, weight}, {u"2 0 -0.1"_s, limit},   {u"2 0 96"_s, limit}};
        for (const auto& [boxes, message] : starts) {
            const QStringList box = boxes.split(u' ');
            const auto refusal = startRefusal({true, true, box[0], box[1], box[2]});
            QCOMPARE(boxes + (refusal ? refusal->message : QString()), boxes + message);
        }
    }

    void fishFiles() {
        const QByteArray header = "TL,BL,FL,SL,BW,SEX,Stage,GW\n";
        const QByteArray first = "152,130,141,128,48.5,F,2,1.2\n";
        const QByteArray second = "160,138,149,135,55,m,1,0.4";
        const QString two = u"152|130|141|128|48.5|Female|2|1.2 160|138|149|135|55|Male|1|0.4"_s;
        const QString none = u"Line 1: none of the names TL,BL,FL,SL,BW,SEX,Stage,GW is in its place"_s;
        const std::vector<std::pair<QByteArray, QString>> files = {
            {header + first + second + "\r\n\r\n\n \n", two},
            {header + "152,130,141,128\n48.5,F,2,1.2\n" + second, two},
            {header + "\n" + first + ",,,, ,,,\n" + second, two},
            {"a,b,c,d,e,sex,stage,GW\n" + first + second, two},
            {header + "long,,-3,0x1F,0,J,\"3-Ripe\nlate\",\n", u"long||-3|0x1F|0|None|3-Ripe\nlate|"_s},
            {header + QByteArray("1,1,1,1,1,MALe,1,1\n").repeated(32'767),
             u"1|1|1|1|1|None|1|1 "_s.repeated(32'767).chopped(1)},
            {header + QByteArray("1,1,1,1,1,F,1,1\n").repeated(32'768), u"Line 32769: more than 32,767 fish"_s},
            {"GW,TL,BL,FL,SL,BW,SEX,Stage\n" + first, none},
            {first + second, none},
            {header + first + "160,138\n149,135,55\n", u"Line 3: 2 fields, not 8"_s},
            {header + "152,130,141,128,48.5,F,2\n" + second, u"Line 2: 7 fields, not 8"_s},
            {header + first.trimmed() + ",\n" + second, u"Line 2: 9 fields, not 8"_s},
            {"TL;BL;FL\n", u"Line 1: the fields are parted by semicolons, not by commas"_s},
            {"\n\n", {}},
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
};

KELVORA_TEST(TestRules, "rules");

}  // namespace kelvora::test_rules

#include "test_rules.moc"
