#include "controls/bound_list.h"
#include "controls/style.h"
#include "data/connection.h"
#include "demo/demo_year.h"
#include "shell/login_dialog.h"
#include "shell/main_window.h"
#include "support/screen_driver.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_store.h"
#include "support/test_main.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <QToolBar>

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
        const QDir folder(qEnvironmentVariable("KELVORA_PICTURES", QStringLiteral(KELVORA_PICTURES)));
        QVERIFY(folder.mkpath(QStringLiteral(".")));
        QVERIFY(shown.grab().save(folder.filePath(name + QStringLiteral(".png"))));
    }

    /// A main window with one screen open; from a menu if there is one, from the buttons else.
    test::ScreenDriver open(const QString& caption, const QString& menu = {}) {
        m_session.login = QStringLiteral("Administrator");
        m_session.password = QStringLiteral("kelvora");
        m_session.userName = QStringLiteral("R. Hughes");
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

    /// Says which operations are to be found: those of a port.
    static void find(const test::ScreenDriver& hand, const QString& port) {
        hand.choose(QStringLiteral("Criterion"), QStringLiteral("Sampling Port"));
        hand.choose(QStringLiteral("Value"), port);
    }

    test::TemporaryStore m_store;
    QString m_path;
    Session m_session;
    test::ScriptedDialogs m_dialogs;
    std::unique_ptr<MainWindow> m_window;

private Q_SLOTS:
    void initTestCase() {
        m_path = m_store.file(QStringLiteral("demo.sqlite"));
        makeDemoYear(m_path, QStringLiteral(KELVORA_SOURCE_FOLDER));
        QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        QApplication::setCursorFlashTime(0);
        QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/kelvora.svg")));
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
        test::ScreenDriver(&login).edit(u"PASSWORD"_qs)->setText(u"kelvora"_qs);
        save(login, u"login"_qs);
    }

    void referenceLists() {
        const auto hand = open(u"General Information"_qs);
        const auto ports = hand.within(u"New sampling port"_qs);
        ports.choose(u"State/Province"_qs, u"England"_qs);
        ports.type(u"Sampling port"_qs, u"Polperro"_qs);
        savePage(u"general_information"_qs);
        hand.openTab(u"Target Species"_qs);
        m_dialogs.expectOpenFile(QStringLiteral(KELVORA_SOURCE_FOLDER "/tests/files/species_import_world_fishes.csv"));
        hand.within(u"IMPORT"_qs).press(u"Import"_qs);
        hand.within(u"IMPORT"_qs).edit(u"Species file"_qs)->setText(u"/home/sampler/species.csv"_qs);
        savePage(u"species"_qs);
        hand.openTab(u"Fishing Vessel"_qs);
        m_dialogs.expectOpenFile(QStringLiteral(KELVORA_SOURCE_FOLDER "/demo/data/vessels.csv"));
        const auto import = hand.within(u"Vessel import"_qs);
        import.press(u"Import"_qs);
        import.edit(u"Vessel file"_qs)->setText(u"/home/sampler/vessels.csv"_qs);
        savePage(u"vessels"_qs);
    }

    void operation() {
        const auto hand = open(u"Fishing Operation"_qs);
        fillOperation(hand);
        savePage(u"fishing_operation"_qs);
    }

    void composition() {
        const auto hand = open(u"Species Composition"_qs);
        find(hand, u"Looe"_qs);
        hand.press(u"Search"_qs);
        hand.move(u"Result"_qs, u"Next"_qs);
        savePage(u"find_operation"_qs);
        hand.openTab(u"Species Composition"_qs);
        const auto group = hand.within(u"Sampling group"_qs);
        group.type(u"Group"_qs, u"Small fish"_qs);
        group.type(u"Total weight"_qs, u"48"_qs);
        for (const auto& [species, weight] :
             {std::pair{u"Merlangius merlangus"_qs, u"3.6"_qs}, std::pair{u"Microstomus kitt"_qs, u"1.25"_qs}}) {
            group.choose(u"Species"_qs, species);
            group.type(u"Weight"_qs, weight);
            group.press(u"ADD"_qs);
        }
        savePage(u"species_composition"_qs);
    }

    void lengths() {
        const auto hand = open(u"Length Frequency"_qs);
        find(hand, u"Looe"_qs);
        hand.press(u"Search"_qs);
        hand.move(u"Result"_qs, u"Next"_qs);
        hand.openTab(u"Length Frequency"_qs);
        const BoundList* species = hand.list(u"Species"_qs);
        hand.choose(u"Species"_qs, species->itemText(0));
        hand.type(u"Class Interval"_qs, u"1"_qs);
        hand.type(u"Sampling weight"_qs, u"14.2"_qs);
        hand.type(u"Lower limit(cm)"_qs, u"11"_qs);
        hand.press(u"START INPUT>>"_qs);
        for (const auto& count : {u"3"_qs, u"8"_qs, u"17"_qs, u"26"_qs, u"19"_qs}) {
            hand.edit(u"Frequency"_qs)->setText(count);
            hand.key(u"Frequency"_qs, Qt::Key_Return);
        }
        savePage(u"length_frequency"_qs);
    }

    void gonads() {
        const auto hand = open(u"Gonad Maturity"_qs);
        find(hand, u"Lower Duncan River"_qs);
        hand.press(u"Search"_qs);
        hand.openTab(u"Gonad Maturity Detail"_qs);
        hand.choose(u"Species"_qs, u"Prosopium williamsonii"_qs);
        hand.press(u"ADD SAMPLING >>"_qs);
        m_dialogs.expectOpenFile(
            QStringLiteral(KELVORA_SOURCE_FOLDER "/tests/files/gonad_import_mountain_whitefish.csv"));
        hand.press(u"IMPORT"_qs);
        savePage(u"gonad_maturity"_qs);
    }

    void search_data() {
        QTest::addColumn<QString>("port");
        QTest::addColumn<QString>("tab");
        QTest::newRow("search_composition") << u"Looe"_qs << u"Species Composition"_qs;
        QTest::newRow("search_lengths") << u"Salerno"_qs << u"Length Frequency"_qs;
        QTest::newRow("search_gonads") << u"Lower Duncan River"_qs << u"Gonad Matuarity"_qs;
    }
    void search() {
        QFETCH(const QString, port);
        QFETCH(const QString, tab);
        const auto hand = open(u"Search"_qs, u"Main Menu"_qs);
        find(hand, port);
        hand.press(u"SEARCH"_qs);
        if (port == u"Looe"_qs) {
            hand.move(u"Result"_qs, u"Next"_qs);  // its first operation is of one species only
        }
        hand.openTab(tab);
        savePage(QString::fromLatin1(QTest::currentDataTag()));
    }

    void changePassword() {
        open(u"Change password"_qs, u"Main Menu"_qs);
        savePage(u"change_password"_qs);
    }

    void catchSummary() {
        const auto hand = open(u"Fishing Information"_qs, u"Report"_qs);
        hand.choose(u"Year"_qs, u"2017"_qs);
        hand.press(u"Search"_qs);
        hand.press(u"By Month"_qs);
        savePage(u"catch_report"_qs);
    }

    void speciesReport() {
        const auto hand = open(u"Species composition"_qs, u"Report"_qs);
        chooseSpeciesOfLooe(hand);
        savePage(u"species_report"_qs);
    }

    void lengthReport() {
        const auto hand = open(u"Length Frequency"_qs, u"Report"_qs);
        hand.choose(u"Year"_qs, u"2017"_qs);
        hand.choose(u"Species"_qs, u"Merluccius merluccius"_qs);
        hand.press(u"Search"_qs);
        savePage(u"length_report"_qs);
    }

    void gonadReport() {
        const auto hand = open(u"Gonad Maturity"_qs, u"Report"_qs);
        hand.choose(u"Year"_qs, u"2017"_qs);
        hand.choose(u"Species"_qs, u"Prosopium williamsonii"_qs);
        hand.press(u"Search"_qs);
        hand.openTab(u"FEMALE"_qs);
        savePage(u"gonad_report"_qs);
    }

    void darkMode() {
        QApplication::setPalette(QPalette(kDarkWindow));
        applyStyle(*qApp);
        const auto hand = open(u"Species composition"_qs, u"Report"_qs);
        chooseSpeciesOfLooe(hand);
        savePage(u"dark_mode"_qs);
        m_window.reset();
        QApplication::setPalette(QPalette(QColor(0xf0, 0xf0, 0xf0)));
        applyStyle(*qApp);
    }

    void largeText() {
        enlargeText();
        fillOperation(open(u"Fishing Operation"_qs));
        savePage(u"large_text"_qs);
        QVERIFY(m_dialogs.done());
    }

    void cleanupTestCase() { m_window.reset(); }

private:
    static void fillOperation(const test::ScreenDriver& hand) {
        hand.choose(u"Vessel Name"_qs, u"TYPHOON"_qs);
        hand.choose(u"Fishing Gear"_qs, u"Trawl"_qs);
        hand.choose(u"Fishing Method"_qs, u"Bottom otter trawl"_qs);
        hand.choose(u"Fishing Area"_qs, u"VIIe"_qs);
        hand.choose(u"Landing State/Province"_qs, u"England"_qs);
        hand.choose(u"Landing Port"_qs, u"Looe"_qs);
        hand.type(u"Sampling Date"_qs, u"11/12/2017"_qs);
        hand.type(u"Bottom Depth(Meter)"_qs, u"64"_qs);
        hand.type(u"Fishing Depth(Meter)"_qs, u"64"_qs);
        hand.type(u"No of haul per Trip(haul)"_qs, u"3"_qs);
        hand.type(u"Duration of Trip(days)"_qs, u"1"_qs);
        hand.type(u"Total Catch (kg/trip)"_qs, u"212.5"_qs);
        hand.type(u"Note"_qs, u"Half of the catch was sold before the sampler came on board."_qs);
    }

    static void chooseSpeciesOfLooe(const test::ScreenDriver& hand) {
        hand.choose(u"Year"_qs, u"2017"_qs);
        hand.press(u"Search"_qs);
        hand.press(u"By sampling Port"_qs);
        hand.choose(u"By sampling Port"_qs, u"Looe"_qs);
    }
};

KELVORA_TEST(GuidePictures, "guide_pictures");

}  // namespace kelvora::guide_pictures

#include "guide_pictures.moc"
