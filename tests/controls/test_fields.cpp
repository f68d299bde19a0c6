#include "controls/fields.h"
#include "support/test_main.h"

#include <QAccessible>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_fields {

/// Values to read, whatever their text is.
class TestFields : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void values() {
        ValueLabel empty;
        empty.resize(200, 30);
        for (const QString& text :
             {u"Otter board"_s, u"<b></b>"_s, u"&"_s, QString(10'000, u'W'), u"a\nb\n"_s.repeated(2'500)}) {
            ValueLabel label;
            label.setText(text);
            QCOMPARE(label.sizeHint(), empty.sizeHint());
            QCOMPARE(label.minimumSizeHint(), empty.minimumSizeHint());
            label.resize(200, 30);
            QVERIFY(label.grab().toImage() != empty.grab().toImage());
            QCOMPARE(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), text);
        }
    }
};

KELVORA_TEST(TestFields, "fields");

}  // namespace kelvora::test_fields

#include "test_fields.moc"
