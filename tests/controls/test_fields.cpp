#include "controls/fields.h"
#include "support/test_main.h"

#include <QAccessible>
#include <QGridLayout>
#include <QLineEdit>
#include <QTest>

namespace kelvora::test_fields {

/// Values to read, and captions in front of fields.
class TestFields : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void values() {
        ValueLabel empty;
        empty.resize(200, 30);
        for (const QString& text :
             {u"Otter board"_qs, u"<b></b>"_qs, u"&"_qs, QString(10'000, u'W'), u"a\nb\n"_qs.repeated(2'500)}) {
            ValueLabel label;
            label.setText(text);
            QCOMPARE(label.sizeHint(), empty.sizeHint());
            QCOMPARE(label.minimumSizeHint(), empty.minimumSizeHint());
            label.resize(200, 30);
            QVERIFY(label.grab().toImage() != empty.grab().toImage());
            QCOMPARE(QAccessible::queryAccessibleInterface(&label)->text(QAccessible::Name), text);
        }
    }

    void captionNamesItsField() {
        QWidget window;
        auto* form = new QGridLayout(&window);
        QLineEdit* field = numberField(QStringLiteral("0"));
        const QLabel* label = addField(form, 0, 0, QStringLiteral(" Bottom Depth (m) "), field);
        QCOMPARE(label->text(), QStringLiteral("Bottom Depth (m)"));
        QCOMPARE(QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name), label->text());
    }
};

KELVORA_TEST(TestFields, "fields");

}  // namespace kelvora::test_fields

#include "test_fields.moc"
