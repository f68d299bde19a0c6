#include "actions.h"
#include "length_of_run.h"
#include "reports/catch_summary_screen.h"
#include "reports/species_composition_report_screen.h"
#include "reports/species_report_screen.h"
#include "shell/login_dialog.h"
#include "support/test_main.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_hostile_fields {

/// Stands in every hostile text, so that what became of it is found in the file.
const QString kMark = u"Ж"_s;

QStringList hostileTexts() {
    QStringList texts;
    for (const char16_t* text : {u"Ж', 1); drop table fish; --",
                                 u"Ж'' or '1' = '1",
                                 u"\"Ж\"; delete from fishoperation; /*",
                                 u"Ж & 'x' & [y]",
                                 u"Ж%_\\*?",
                                 u"Ж year(optdate) = 2004",
                                 u"TRANSFORM Ж PIVOT",
                                 u"\u202eЖ\u05d0\u0627",
                                 u"Ж\U0001f41f\u0301",
                                 u"Ж<b>&amp;\n\t|",
                                 u"Ж%1%2%s",
                                 u"'",
                                 u"1e308",
                                 u"1.7976931348623157e308",
                                 u"-1e400",
                                 u"1e-400",
                                 u"0.1e-320",
                                 u"32767",
                                 u"32768",
                                 u"-32769",
                                 u"65536",
                                 u"2147483648",
                                 u"99999999999999999999999999",
                                 u"nan",
                                 u"0x10",
                                 u"1,5",
                                 u"-0",
                                 u"\u0661\u0662"}) {
        texts.append(QString::fromUtf16(text));
    }
    texts.append(u"Ж"_s + QChar(u'\0') + u"behind"_s);
    texts.append(kMark + QString(100'000, u'W'));
    texts.append(QString(100'000, u'9'));
    texts.append(QString(50'000, u'\''));
    return texts;
}

std::vector<test::Action> allActions() {
    std::vector<test::Action> all = test::actions();
    const QString year = u"Year = 2004"_s;
    all.push_back({"catch summary", &test::make<CatchSummaryScreen>, {}, {}, year, u"Search"_s});
    all.push_back({"composition report", &test::make<SpeciesCompositionReportScreen>, {}, {}, year, u"Search"_s});
    all.push_back({"length report", &test::make<LengthFrequencyReportScreen>, {}, {}, year, u"Search"_s});
    all.push_back({"gonad report", &test::make<GonadMaturityReportScreen>, {}, {}, year, u"Search"_s});
    return all;
}

/// Hostile texts come into every field that can be typed into, by the clipboard, as they would; then the screen's
/// button is pressed. A text may be refused or stored, but never in part, and no statement fails over it.
class TestHostileFields : public QObject {
    Q_OBJECT

    /// The fields of a screen that can be typed into.
    static QList<QWidget*> fieldsOf(const QWidget& screen) {
        QList<QWidget*> found;
        for (QWidget* widget : screen.findChildren<QWidget*>()) {
            const bool text = widget->inherits("QLineEdit") || widget->inherits("QPlainTextEdit");
            if (text && !widget->property("readOnly").toBool() && widget->isEnabled() && widget->isVisibleTo(&screen)) {
                found.append(widget);
            }
        }
        return found;
    }

    /// Pastes a text over what a field holds and leaves it; returns what the field took.
    static QString paste(QWidget* field, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        field->setFocus();
        QMetaObject::invokeMethod(field, "selectAll");
        QMetaObject::invokeMethod(field, "paste");
        QString taken = field->property(field->inherits("QLineEdit") ? "text" : "plainText").toString();
        QTest::keyClick(field, Qt::Key_Tab);
        return taken;
    }

    static void checkSaid(const QStringList& said, const QString& where) {
        static const QRegularExpression failure(u"could not be read|stored or deleted|Invalid|optional"_s);
        if (const QString all = said.join(u'\n'); all.contains(failure)) {
            qFatal("%s: %s", qPrintable(where), qPrintable(all.left(400)));
        }
    }

    static void checkStored(test::Desk& desk, const QString& taken, const QString& where) {
        const QString whole = QString(taken).remove(QChar(u'\0'));
        for (const QString& row : desk.stored()) {
            const bool inPart = row.contains(kMark) && !row.contains(whole);
            const QStringList cells = row.split(u'|');
            if (inPart || cells.contains(u"inf"_s) || cells.contains(u"-inf"_s)) {
                qFatal("%s: stored in part, or no number: %s", qPrintable(where), qPrintable(row.left(400)));
            }
        }
        if (desk.store.rows("pragma integrity_check") != QStringList{u"ok"_s}) {
            qFatal("%s: the file is damaged", qPrintable(where));
        }
    }

    static void tryField(const test::Action& action, int number, const QString& text) {
        test::Desk desk(action);
        const QString where = u"%1, field %2, \"%3\""_s.arg(QLatin1String(action.name)).arg(number).arg(text.left(30));
        desk.dialogs.typed = text;
        const QString taken = paste(fieldsOf(*desk.screen).at(number), text);
        desk.frame.press(action.button);
        checkSaid(desk.dialogs.said, where);
        checkStored(desk, taken, where);
    }

private Q_SLOTS:
    void everyField_data() {
        QTest::addColumn<test::Action>("action");
        for (const test::Action& action : allActions()) {
            QTest::newRow(action.name) << action;
        }
    }
    void everyField() {
        QFETCH(test::Action, action);
        const QStringList texts = hostileTexts();
        const int fields = static_cast<int>(fieldsOf(*test::Desk(action).screen).size());
        QRandomGenerator random(test::seed() + static_cast<quint32>(qHash(QByteArray(action.name))));
        const int pairs = fields * static_cast<int>(texts.size());
        const int tries = test::times(std::min(3, pairs), pairs);
        qInfo("%d of %d fields and texts", tries, pairs);
        for (int i = 0; i < tries; ++i) {
            const int chosen = test::times(random.bounded(pairs), i);
            tryField(action, chosen % fields, texts.at(chosen / fields));
        }
    }

    void login() {
        for (const QString& text : hostileTexts()) {
            test::TemporaryStore store;
            test::RecordingDialogs dialogs;
            store.session = {};
            LoginDialog dialog({store.path(), store.session, dialogs});
            for (QLineEdit* field : dialog.findChildren<QLineEdit*>()) {
                paste(field, text);
            }
            test::ScreenDriver(&dialog).press(u"Log in"_s);
            QCOMPARE(dialogs.said, QStringList{u"Kelvora: Your Password not correct please Try again "_s});
            QVERIFY(store.session.login.isEmpty());
        }
    }
};

KELVORA_TEST(TestHostileFields, "hostile_fields");

}  // namespace kelvora::test_hostile_fields

#include "test_hostile_fields.moc"
