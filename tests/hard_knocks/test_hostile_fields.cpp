#include "desk.h"
#include "length_of_run.h"
#include "shell/login_dialog.h"
#include "support/test_main.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_hostile_fields {

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

const std::array kRename = {
    Literal("update state set statename = "),      Literal("update samplingport set samplingname = "),
    Literal("update Fishing_gear set guname = "),  Literal("update Fishing_method set methodname = "),
    Literal("update vessel set vesselname = "),    Literal("update fish set fishname = "),
    Literal("update group_main set groupname = "), Literal("update fishoperation set vesselid = "),
    Literal("update fishoperation set note = ")};

const QString kSearch = u"Criterion = State/Province; Value = Alpha; SEARCH; "_s;
const char* const kNewFish =
    "Species = Nemipterus virgatus; ADD SAMPLING >>; TL(mm) = 100; BL(mm) = 99; FL(mm) = 98; SL(mm) = 97; SEX = Male; "
    "BW = 96; GW = 2.5; Stage = 2-Maturing";
const char* const kFish =
    "TL(mm) = 100; BL(mm) = 99; FL(mm) = 98; SL(mm) = 97; SEX = Male; BW = 96; GW = 2.5; Stage = 2-Maturing";

/// Together they have every field that can be typed into.
const std::vector<test::Filled>& filled() {
    using enum test::Place;
    static const std::vector<test::Filled> all = {
        {"port", General, "General", "New sampling port", "State/Province = Gamma; Sampling port = New", "ADD"},
        {"method", General, "General", "New fishing method", "Fishing gear = Trap; Fishing Method = Pot", "Add"},
        {"area", General, "General", "New fishing area", "Area Name = A9; Description = deep", "Add"},
        {"species", General, "Target Species", "New species",
         "Family = Gadidae; Genus = Gadus; Species = morhua; Common name = cod", "Add"},
        {"vessel", General, "Fishing Vessel", "FISHING VESSEL",
         "Vessel name = New; Engine Power (hp) = 75; Size(GRT) = 12.5; Vessel Length(m) = 9; Type of Gear = Trawl; "
         "Engine type = In Board",
         "Add"},
        test::kOperation,
        test::kSingleSpecies,
        {"group", Composition, "Species Composition", "Sampling group",
         "Group = Mixed; Total weight = 60; Species = Nemipterus virgatus; Weight = 4; ADD", "SAVE"},
        {"lengths", Lengths, "Length Frequency", "",
         "Species = Nemipterus virgatus; Class Interval = 2; Sampling weight = 1.5; Lower limit(cm) = 11",
         "START INPUT>>; FINISH; SAVE"},
        {"count", Lengths, "Length Frequency", "",
         "Species = Nemipterus virgatus; Class Interval = 2; Sampling weight = 1.5; Lower limit(cm) = 11; "
         "START INPUT>>; Frequency = 3\n",
         "FINISH; SAVE"},
        {"fish", Gonads, "Gonad Maturity Detail", "", kNewFish, "NEXT>>; SAVE"},
        {"finder", Composition, "Fishing Operation", "", "", "Search"},
        {"weight of lengths", Search, "Length Frequency", "", "", "Update"},
        {"class", Search, "Length Frequency", "", "Frequency = 7", "ADD"},
        {"further fish", Search, "Gonad Matuarity", "", kFish, "ADD"},
        {"password", Password, "", "", "Username = Somebody; Password = new; Re-password = new", "CHANGE PASSWORD"},
        {"catch", CatchReport, "", "", "Year = 2004", "Search"},
        {"composition", CatchReport + 1, "", "", "Year = 2004", "Search"},
        {"length report", CatchReport + 2, "", "", "Year = 2004", "Search"},
        {"gonad report", CatchReport + 3, "", "", "Year = 2004", "Search"},
    };
    return all;
}

/// Hostile texts come into every field that can be typed into, by the clipboard, as they would; then the screen's
/// button is pressed. A text may be refused or stored, but never in part, and no statement fails over it.
class TestHostileFields : public QObject {
    Q_OBJECT

    /// A small year, and what is filled in over it.
    struct Tried {
        explicit Tried(const test::Filled& what) : desk(small(store)) {
            desk.session.lastSavedOperation = QLatin1String(what.name) == u"finder" ? 0 : 1;
            if (what.place == test::Search) {
                desk.open(what.place).enter(kSearch);
            }
            frame = desk.fill(what);
        }
        static QString small(test::TemporaryStore& store) {
            store.addSmallYear();
            return store.path();
        }
        [[nodiscard]] QList<QWidget*> fields() const {
            QList<QWidget*> found;
            for (QWidget* widget : frame.root()->findChildren<QWidget*>()) {
                const bool text = widget->inherits("QLineEdit") || widget->inherits("QPlainTextEdit");
                if (text && !widget->property("readOnly").toBool() && widget->isEnabled() && widget->isVisible()) {
                    found.append(widget);
                }
            }
            return found;
        }
        test::TemporaryStore store;
        test::Desk desk;
        test::ScreenDriver frame{nullptr};
    };

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

    static void tryField(const test::Filled& what, int number, const QString& text) {
        Tried tried(what);
        const auto fail = [&](const QString& found) {
            qFatal("%s, field %d, \"%s\": %s", what.name, number, qPrintable(text.left(30)),
                   qPrintable(found.left(400)));
        };
        tried.desk.dialogs.typed = text;
        const QString taken = paste(tried.fields().at(number), text).remove(QChar(u'\0'));
        for (const QString& button : QString::fromLatin1(what.button).split(u"; "_s)) {
            if (tried.frame.enabled(button)) {
                tried.frame.press(button);
            }
        }
        static const QRegularExpression failure(u"could not be read|stored or deleted|Invalid|optional"_s);
        if (const QString said = tried.desk.dialogs.said.join(u'\n'); said.contains(failure)) {
            fail(said);
        }
        static const QRegularExpression infinity(u"(^|\\|)-?inf(\\||$)"_s);
        for (const QString& row : tried.store.wholeFile() + tried.store.rows("select * from kelvora_user")) {
            if ((row.contains(kMark) && !row.contains(taken)) || row.contains(infinity)) {
                fail(u"stored in part, or no number: "_s + row);
            }
        }
        if (tried.store.rows("pragma integrity_check") != QStringList{u"ok"_s}) {
            fail(u"the file is damaged"_s);
        }
    }

private Q_SLOTS:
    void everyField_data() {
        QTest::addColumn<test::Filled>("what");
        for (const test::Filled& what : filled()) {
            QTest::newRow(what.name) << what;
        }
    }
    void everyField() {
        QFETCH(test::Filled, what);
        const QStringList texts = hostileTexts();
        const int fields = static_cast<int>(Tried(what).fields().size());
        QVERIFY(fields > 0);
        QRandomGenerator random(test::seed() + static_cast<quint32>(qHash(QByteArray(what.name))));
        // Every field with some text or other, each day; with every one in the long run.
        const int pairs = fields * static_cast<int>(texts.size());
        for (int i = 0; i < test::times(fields, pairs); ++i) {
            tryField(what, i % fields,
                     texts.at(test::times(random.bounded(static_cast<int>(texts.size())), i / fields)));
        }
    }

    /// No screen grows beyond its window with the names of another program.
    void longNames() {
        test::TemporaryStore store;
        store.addSmallYear();
        for (const Literal& rename : kRename) {
            store.db().execute(Sql(rename) << QString(10'000, u'W'));
        }
        test::Desk desk(store.path());
        desk.session.lastSavedOperation = 1;
        for (int place = test::General; place <= test::CatchReport + 3; ++place) {
            const test::ScreenDriver hand = desk.open(place);
            if (place == test::Search) {
                hand.enter(u"Criterion = Fishing Area; Value = north bank; SEARCH"_s);
            } else if (place >= test::CatchReport) {
                hand.enter(u"Year = 2004; Search"_s);
            }
            const QSize least = hand.root()->findChild<Screen*>()->minimumSizeHint();
            QVERIFY2(least.width() <= 1340 && least.height() <= 590, qPrintable(desk.front()->windowTitle()));
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
