#include "records/operation.h"
#include "support/test_main.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_operation_checks {

/// The limits of what an operation may hold, without a window.
class TestOperationChecks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void limits() {
        struct Limit {
            QString OperationEntry::*field;
            QString text, message;
        };
        using Entry = OperationEntry;
        const QString latitude = u"Dec of Latitude between 0-25"_s;
        const QString longitude = u"Dec of Longtitude between 92-125"_s;
        const QString total = u"Please input Estimate Total Catch(kg/trip)"_s;
        const std::vector<Limit> limits = {
            {&Entry::latitudeDec, u"25"_s, {}},
            {&Entry::latitudeDec, u"25.5"_s, latitude},
            {&Entry::latitudeDec, u"12N"_s, u"Please input latitude in number"_s},
            {&Entry::longitudeDec, u"0.0"_s, {}},  // not recorded
            {&Entry::longitudeDec, u"92"_s, {}},
            {&Entry::longitudeDec, u"91.99"_s, longitude},
            {&Entry::longitudeDec, u"125"_s, {}},
            {&Entry::longitudeDec, u"1e999"_s, longitude},
            {&Entry::totalCatch, u"0.5"_s, {}},
            {&Entry::totalCatch, u" 0.00 "_s, total},
            {&Entry::totalCatch, u"-3"_s, total},
            {&Entry::state, u"  "_s, u"please select state  first!"_s},
            {&Entry::area, {}, u"please select fishing area"_s},
        };
        OperationEntry right;
        for (QString Entry::*number :
             {&Entry::latitudeDec, &Entry::latitudeMin, &Entry::longitudeDec, &Entry::longitudeMin, &Entry::bottomDepth,
              &Entry::fishingDepth, &Entry::hauls, &Entry::duration}) {
            right.*number = u"0"_s;
        }
        right.state = right.port = right.area = right.registerId = u"x"_s;
        right.totalCatch = u"10"_s;
        right.method = u"1"_s;
        QVERIFY(!refusalOf(right));
        for (const Limit& limit : limits) {
            OperationEntry entry = right;
            entry.*limit.field = limit.text;
            const auto refusal = refusalOf(entry);
            QVERIFY2((refusal ? refusal->message : QString()) == limit.message, qPrintable(limit.text));
        }
    }
};

KELVORA_TEST(TestOperationChecks, "operation_checks");

}  // namespace kelvora::test_operation_checks

#include "test_operation_checks.moc"
