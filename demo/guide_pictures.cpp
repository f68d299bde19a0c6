#include "controls/style.h"
#include "data/connection.h"
#include "demo/demo_year.h"
#include "shell/login_dialog.h"
#include "shell/main_window.h"
#include "support/planned_dialogs.h"
#include "support/screen_driver.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QIcon>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace kelvora::guide_pictures {

constexpr QSize kSmallScreen(1366, 768);
/// The ground of a desktop in its dark mode.
constexpr QColor kDarkWindow(0x20, 0x20, 0x20);

void enlargeText() {
    QFont large = QApplication::font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    QApplication::setFont(large);
}

/// Takes the pictures of the guide from the real screens on the demonstration year: one slot a picture or a few that
/// belong together. A screen that no longer takes what is typed here ends the run.
class GuidePictures : public QObject {
    Q_OBJECT

private:
    [[nodiscard]] Context context() { return {m_path, m_session, m_dialogs}; }

    static void save(QWidget& shown, const QString& name) {
        QTest::qWait(50);  // what is to be drawn after a layout
        const QDir folder(qEnvironmentVariable("KELVORA_PICTURES", u"" KELVORA_PICTURES ""_s));
        QVERIFY(folder.mkpath(u"."_s));
        QVERIFY(shown.grab().save(folder.filePath(name + u".png"_s)));
    }

    /// A main window with one screen open; from a menu if there is one, from the buttons else.
    test::ScreenDriver open(const QString& caption, const QString& menu = {}) {
        m_session.login = u"Administrator"_s;
        m_session.password = u"kelvora"_s;
        m_session.userName = u"R. Hughes"_s;
        m_window = std::make_unique<MainWindow>(context());
        m_window->resize(kSmallScreen);
        m_window->show();
        for (QAction* action : actionsOf(menu)) {
            if (action->text() == caption) {
                action->trigger();
            }
        }
        QTest::qWait(50);
        const auto windows = m_window->findChildren<QMdiSubWindow*>();
        if (windows.size() != 1) {
            qFatal("no screen %s", qPrintable(caption));
        }
        return test::ScreenDriver(windows.front()->widget());
    }

    [[nodiscard]] QList<QAction*> actionsOf(const QString& menu) const {
        for (const QMenu* found : m_window->findChildren<QMenu*>()) {
            if (!menu.isEmpty() && found->title().remove(u'&') == menu) {
                return found->actions();
            }
        }
        return m_window->findChild<QToolBar*>()->actions();
    }

    void savePage(const QString& name) { save(*m_window, name); }

    static void put(const test::ScreenDriver& hand, const QString& box, const QString& text) {
        qobject_cast<QLineEdit*>(hand.field(box))->setText(text);
    }

    /// Says which operations are to be found: those of a port.
    static void find(const test::ScreenDriver& hand, const QString& port) {
        hand.choose(u"Criterion"_s, u"Sampling Port"_s);
        hand.choose(u"Value"_s, port);
    }

    test::TemporaryStore m_store;
    QString m_path;
    Session m_session;
    test::PlannedDialogs m_dialogs;
    std::unique_ptr<MainWindow> m_window;

private Q_SLOTS:
    void initTestCase() {
        m_path = m_store.file(u"demo.sqlite"_s);
        makeDemoYear(m_path, u"" KELVORA_SOURCE_FOLDER ""_s);
        QApplication::setFont(QFont(u"DejaVu Sans"_s, 9));
        QApplication::setCursorFlashTime(0);
        QApplication::setWindowIcon(QIcon(u":/icons/kelvora.svg"_s));
        // The same screens as other desktops show them, to be looked at by the developers.
        const QString look = qEnvironmentVariable("KELVORA_LOOK");
        if (look == u"dark") {
            QApplication::setPalette(QPalette(kDarkWindow));
        } else if (look == u"large") {
            enlargeText();
        }
        applyStyle(*qApp);
    }

    void signIn() {
        LoginDialog login(context());
        login.show();
        put(test::ScreenDriver(&login), u"PASSWORD"_s, u"kelvora"_s);
        save(login, u"login"_s);
    }

    void referenceLists() {
        const auto hand = open(u"General Information"_s);
        const auto ports = hand.within(u"New sampling port"_s);
        ports.choose(u"State/Province"_s, u"England"_s);
        ports.type(u"Sampling port"_s, u"Polperro"_s);
        savePage(u"general_information"_s);
        hand.openTab(u"Target Species"_s);
        m_dialogs.expect(u"? open file -> "_s + u"" KELVORA_SOURCE_FOLDER
                                                "/tests/files/species_import_world_fishes.csv"_s);
        hand.within(u"IMPORT"_s).press(u"Import"_s);
        put(hand.within(u"IMPORT"_s), u"Species file"_s, u"/home/sampler/species.csv"_s);
        savePage(u"species"_s);
        hand.openTab(u"Fishing Vessel"_s);
        m_dialogs.expect(u"? open file -> "_s + u"" KELVORA_SOURCE_FOLDER "/demo/data/vessels.csv"_s);
        const auto import = hand.within(u"Vessel import"_s);
        import.press(u"Import"_s);
        put(import, u"Vessel file"_s, u"/home/sampler/vessels.csv"_s);
        savePage(u"vessels"_s);
    }

    void operation() {
        const auto hand = open(u"Fishing Operation"_s);
        fillOperation(hand);
        savePage(u"fishing_operation"_s);
    }

    void composition() {
        const auto hand = open(u"Species Composition"_s);
        find(hand, u"Looe"_s);
        hand.press(u"Search"_s);
        hand.navigator(u"Result"_s).press(u"Next"_s);
        savePage(u"find_operation"_s);
        hand.openTab(u"Species Composition"_s);
        const auto group = hand.within(u"Sampling group"_s);
        group.type(u"Group"_s, u"Small fish"_s);
        group.type(u"Total weight"_s, u"48"_s);
        for (const auto& [species, weight] :
             {std::pair{u"Merlangius merlangus"_s, u"3.6"_s}, std::pair{u"Microstomus kitt"_s, u"1.25"_s}}) {
            group.choose(u"Species"_s, species);
            group.type(u"Weight"_s, weight);
            group.press(u"ADD"_s);
        }
        savePage(u"species_composition"_s);
    }

    void lengths() {
        const auto hand = open(u"Length Frequency"_s);
        find(hand, u"Looe"_s);
        hand.press(u"Search"_s);
        hand.navigator(u"Result"_s).press(u"Next"_s);
        hand.openTab(u"Length Frequency"_s);
        hand.choose(u"Species"_s, qobject_cast<QComboBox*>(hand.field(u"Species"_s))->itemText(0));
        hand.type(u"Class Interval"_s, u"1"_s);
        hand.type(u"Sampling weight"_s, u"14.2"_s);
        hand.type(u"Lower limit(cm)"_s, u"11"_s);
        hand.press(u"START INPUT>>"_s);
        for (const auto& count : {u"3"_s, u"8"_s, u"17"_s, u"26"_s, u"19"_s}) {
            hand.enter(u"Frequency = "_s + count + u'\n');
        }
        savePage(u"length_frequency"_s);
    }

    void gonads() {
        const auto hand = open(u"Gonad Maturity"_s);
        find(hand, u"Lower Duncan River"_s);
        hand.press(u"Search"_s);
        hand.openTab(u"Gonad Maturity Detail"_s);
        hand.choose(u"Species"_s, u"Prosopium williamsonii"_s);
        hand.press(u"ADD SAMPLING >>"_s);
        m_dialogs.expect(u"? open file -> "_s + u"" KELVORA_SOURCE_FOLDER
                                                "/tests/files/gonad_import_mountain_whitefish.csv"_s);
        hand.press(u"IMPORT"_s);
        savePage(u"gonad_maturity"_s);
    }

    void search_data() {
        QTest::addColumn<QString>("port");
        QTest::addColumn<QString>("tab");
        QTest::newRow("search_composition") << u"Looe"_s << u"Species Composition"_s;
        QTest::newRow("search_lengths") << u"Salerno"_s << u"Length Frequency"_s;
        QTest::newRow("search_gonads") << u"Lower Duncan River"_s << u"Gonad Matuarity"_s;
    }
    void search() {
        QFETCH(const QString, port);
        QFETCH(const QString, tab);
        const auto hand = open(u"Search"_s, u"Main Menu"_s);
        find(hand, port);
        hand.press(u"SEARCH"_s);
        if (port == u"Looe"_s) {
            hand.navigator(u"Result"_s).press(u"Next"_s);  // its first operation is of one species only
        }
        hand.openTab(tab);
        savePage(QString::fromLatin1(QTest::currentDataTag()));
    }

    void changePassword() {
        open(u"Change password"_s, u"Main Menu"_s);
        savePage(u"change_password"_s);
    }

    void catchSummary() {
        const auto hand = open(u"Fishing Information"_s, u"Report"_s);
        hand.choose(u"Year"_s, u"2017"_s);
        hand.press(u"Search"_s);
        hand.press(u"By Month"_s);
        savePage(u"catch_report"_s);
    }

    void speciesReport() {
        const auto hand = open(u"Species composition"_s, u"Report"_s);
        chooseSpeciesOfLooe(hand);
        savePage(u"species_report"_s);
    }

    void lengthReport() {
        const auto hand = open(u"Length Frequency"_s, u"Report"_s);
        hand.choose(u"Year"_s, u"2017"_s);
        hand.choose(u"Species"_s, u"Merluccius merluccius"_s);
        hand.press(u"Search"_s);
        savePage(u"length_report"_s);
    }

    void gonadReport() {
        const auto hand = open(u"Gonad Maturity"_s, u"Report"_s);
        hand.choose(u"Year"_s, u"2017"_s);
        hand.choose(u"Species"_s, u"Prosopium williamsonii"_s);
        hand.press(u"Search"_s);
        hand.openTab(u"FEMALE"_s);
        savePage(u"gonad_report"_s);
    }

    void darkMode() {
        QApplication::setPalette(QPalette(kDarkWindow));
        applyStyle(*qApp);
        const auto hand = open(u"Species composition"_s, u"Report"_s);
        chooseSpeciesOfLooe(hand);
        savePage(u"dark_mode"_s);
        m_window.reset();
        QApplication::setPalette(QPalette(QColor(0xf0, 0xf0, 0xf0)));
        applyStyle(*qApp);
    }

    void largeText() {
        enlargeText();
        fillOperation(open(u"Fishing Operation"_s));
        savePage(u"large_text"_s);
        QVERIFY(m_dialogs.missing().isEmpty());
    }

    void cleanupTestCase() { m_window.reset(); }

private:
    static void fillOperation(const test::ScreenDriver& hand) {
        hand.choose(u"Vessel Name"_s, u"TYPHOON"_s);
        hand.choose(u"Fishing Gear"_s, u"Trawl"_s);
        hand.choose(u"Fishing Method"_s, u"Bottom otter trawl"_s);
        hand.choose(u"Fishing Area"_s, u"VIIe"_s);
        hand.choose(u"Landing State/Province"_s, u"England"_s);
        hand.choose(u"Landing Port"_s, u"Looe"_s);
        hand.type(u"Sampling Date"_s, u"11/12/2017"_s);
        hand.type(u"Bottom Depth(Meter)"_s, u"64"_s);
        hand.type(u"Fishing Depth(Meter)"_s, u"64"_s);
        hand.type(u"No of haul per Trip(haul)"_s, u"3"_s);
        hand.type(u"Duration of Trip(days)"_s, u"1"_s);
        hand.type(u"Total Catch (kg/trip)"_s, u"212.5"_s);
        hand.type(u"Note"_s, u"Half of the catch was sold before the sampler came on board."_s);
    }

    static void chooseSpeciesOfLooe(const test::ScreenDriver& hand) {
        hand.choose(u"Year"_s, u"2017"_s);
        hand.press(u"Search"_s);
        hand.press(u"By sampling Port"_s);
        hand.choose(u"By sampling Port"_s, u"Looe"_s);
    }
};

KELVORA_TEST(GuidePictures, "guide_pictures");

}  // namespace kelvora::guide_pictures

#include "guide_pictures.moc"
