#include "desk.h"
#include "support/test_main.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_hostile_fields {

/// A part of a screen, what is filled in there, and the button that stores it.
struct Filled {
    int place;
    const char *tab, *frame, *steps, *button;
};
constexpr auto kFish =
    "Species = Nemipterus virgatus; ADD SAMPLING >>; TL(mm) = 100; BL(mm) = 99; FL(mm) = 98; SL(mm) = 97; SEX = Male; "
    "BW = 96; GW = 2.5; Stage = 2-Maturing";
const std::array kFilled = {
    Filled{test::General, "General", "New sampling port", "State/Province = Gamma; Sampling port = New", "ADD"},
    Filled{test::General, "General", "New fishing method", "Fishing gear = Trap; Fishing Method = Pot", "Add"},
    Filled{test::General, "General", "New fishing area", "Area Name = A9; Description = deep", "Add"},
    Filled{test::General, "Target Species", "New species", "Family = Gadidae; Genus = Gadus; Species = morhua", "Add"},
    Filled{test::General, "Fishing Vessel", "FISHING VESSEL",
           "Vessel name = New; Engine Power (hp) = 75; Size(GRT) = 12.5; Vessel Length(m) = 9; Type of Gear = Trawl; "
           "Engine type = In Board",
           "Add"},
    Filled{test::Operations, "", "", test::kOperation, "SAVE"},
    Filled{test::Composition, "Species Composition", "Single species", test::kSingleSpecies, "Add"},
    Filled{test::Composition, "Species Composition", "Sampling group",
           "Group = Mixed; Total weight = 60; Species = Nemipterus virgatus; Weight = 4; ADD", "SAVE"},
    Filled{test::Composition, "Fishing Operation", "", "", "Search"},
    Filled{test::Lengths, "Length Frequency", "",
           "Species = Nemipterus virgatus; Class Interval = 2; Sampling weight = 1.5; Lower limit(cm) = 11",
           "START INPUT>>; FINISH; SAVE"},
    Filled{test::Lengths, "Length Frequency", "",
           "Species = Nemipterus virgatus; Class Interval = 2; Sampling weight = 1.5; Lower limit(cm) = 11; "
           "START INPUT>>; Frequency = 3",
           "FINISH; SAVE"},
    Filled{test::Gonads, "Gonad Maturity Detail", "", kFish, "NEXT>>; SAVE"},
    Filled{test::Search, "Length Frequency", "", "Frequency = 7", "ADD"},
    Filled{test::Password, "", "", "Username = Somebody; Password = new; Re-password = new", "CHANGE PASSWORD"},
    Filled{test::CatchReport, "", "", "Year = 2004", "Search"}};

/// Stands in most hostile texts, so that what became of them is found in the file.
const QString kMark = u"Ж"_s;

QStringList hostileTexts() {
    QStringList texts =
        u"Ж', 1); drop table fish; --\nЖ'' or '1' = '1\n\"Ж\"; delete from fishoperation; /*\n"
        "Ж & 'x' & [y]\nЖ%_\\*?\nЖ year(optdate) = 2004\n\u202eЖ\u05d0\u0627\nЖ\U0001f41f\u0301\n"
        "Ж%1%2%s\n'\n1e308\n1.7976931348623157e308\n-1e400\n1e-400\n0.1e-320\n32767\n32768\n-32769\n"
        "65536\n2147483648\n99999999999999999999999999\nnan\n0x10\n1,5\n-0\n\u0661\u0662"_s.split(u'\n');
    return texts << u"Ж<b>&amp;\n\t|"_s << u"Ж"_s + QChar(u'\0') + u"behind"_s << kMark + QString(100'000, u'W')
                 << QString(100'000, u'9') << QString(50'000, u'\'');
}

/// Hostile texts come into every field that can be typed into, by the clipboard, as they would; then the screen's
/// button is pressed. A text may be refused or stored, but never in part, and no statement fails over it.
class TestHostileFields : public QObject {
    Q_OBJECT

    /// One field of a part of a screen and one text; returns how many fields the part has.
    static int tryField(const Filled& what, int number, const QString& text) {
        test::DeskOfSmallYear year;
        auto& [store, desk] = year;
        desk.dialogs.typed = text;
        desk.session.lastSavedOperation = *what.steps == '\0' ? 0 : 1;
        if (what.place == test::Search) {
            desk.open(what.place).enter(u"Criterion = State/Province; Value = Alpha; SEARCH"_s);
        }
        const auto hand = desk.open(what.place, QLatin1String(what.tab), QLatin1String(what.frame));
        hand.enter(QLatin1String(what.steps));
        QWidgetList fields = hand.root()->findChildren<QWidget*>();
        fields.removeIf([](const QWidget* widget) {
            return !(widget->inherits("QLineEdit") || widget->inherits("QPlainTextEdit")) || !widget->isEnabled() ||
                   widget->property("readOnly").toBool() || !widget->isVisible();
        });
        QWidget* field = fields.at(number % fields.size());
        QGuiApplication::clipboard()->setText(text);
        field->setFocus();
        QMetaObject::invokeMethod(field, "selectAll");
        QMetaObject::invokeMethod(field, "paste");
        const QString taken = field->property(field->inherits("QLineEdit") ? "text" : "plainText").toString();
        QTest::keyClick(field, Qt::Key_Tab);
        for (const QString& button : QString::fromLatin1(what.button).split(u"; "_s)) {
            if (hand.enabled(button)) {
                hand.press(button);
            }
        }
        static const QRegularExpression failure(u"could not be read|stored or deleted|Invalid|optional"_s);
        static const QRegularExpression infinity(u"(^|\\|)-?inf(\\||$)"_s);
        QStringList wrong = desk.dialogs.said.filter(failure);
        for (const QString& row : store.wholeFile() + store.rows("select * from kelvora_user")) {
            const bool inPart = row.contains(kMark) && !row.contains(QString(taken).remove(QChar(u'\0')));
            wrong += inPart || row.contains(infinity) ? QStringList{row} : QStringList();
        }
        if (!wrong.isEmpty() || store.rows("pragma integrity_check") != QStringList{u"ok"_s}) {
            qFatal("%s of %s, field %d, \"%s\": %s", what.button, what.frame, number, qPrintable(text.left(30)),
                   qPrintable(wrong.join(u'\n').left(400)));
        }
        return static_cast<int>(fields.size());
    }

private Q_SLOTS:
    /// Every field with some text or other, each day; with every one in the long run.
    void everyField() {
        const QStringList texts = hostileTexts();
        const int all = static_cast<int>(texts.size());
        QRandomGenerator random(test::seed());
        for (const Filled& what : kFilled) {
            int fields = 1;
            for (int i = 0; i < fields * test::times(1, all); ++i) {
                fields = tryField(what, i, texts.at(test::times(random.bounded(all), i / fields)));
            }
        }
    }

    /// No screen grows beyond its window with the names of another program.
    void longNames() {
        test::DeskOfSmallYear year;
        for (const Literal column : {Literal("state set statename"), Literal("samplingport set samplingname"),
                                     Literal("vessel set vesselname"), Literal("Fishing_gear set guname"),
                                     Literal("Fishing_method set methodname"), Literal("fish set fishname"),
                                     Literal("group_main set groupname"), Literal("fishoperation set vesselid"),
                                     Literal("fishoperation set note")}) {
            year.store.db().execute(Sql("update ") << column << " = " << QString(10'000, u'W'));
        }
        for (int place = test::General; place <= test::CatchReport + 3; ++place) {
            const test::ScreenDriver hand = year.desk.open(place);
            hand.enter(place == test::Search        ? u"Criterion = Fishing Area; Value = north bank; SEARCH"_s
                       : place >= test::CatchReport ? u"Year = 2004; Search"_s
                                                    : QString());
            const QSize least = hand.root()->findChild<Screen*>()->minimumSizeHint();
            QVERIFY2(least.width() <= 1340 && least.height() <= 590, qPrintable(year.desk.front()->windowTitle()));
        }
    }
};

KELVORA_TEST(TestHostileFields, "hostile_fields");

}  // namespace kelvora::test_hostile_fields

#include "test_hostile_fields.moc"
