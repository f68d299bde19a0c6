#include "source_texts.h"
#include "support/test_main.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace kelvora::test_documents {

using test::SourceText;

const QString kSources = u"" KELVORA_SOURCE_FOLDER ""_s;

QString contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(path));
    }
    return QString::fromUtf8(file.readAll());
}

/// The files below a folder of the project with one of these endings; those in folders of builds left out.
QStringList filesIn(const QString& folder, const QStringList& patterns) {
    QStringList paths;
    for (QDirIterator it(kSources + folder, patterns, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString path = it.next();
        if (!path.startsWith(kSources + u"/build/"_s)) {
            paths.append(path);
        }
    }
    return paths;
}

/// A text as it is compared: what is filled in is "…", any blanks are one.
QString compared(QString text) {
    return text.replace(QRegularExpression(u"%[1-9]"_s), u"…"_s).simplified();
}

/// The anchor that a heading has in a page.
QString anchorOf(const QString& heading) {
    return heading.trimmed().toLower().remove(QRegularExpression(u"[^\\w\\- ]"_s)).replace(u' ', u'-');
}

/// Every line of the program's texts that is wanted stands on the pages; that there are more than the fewest says that
/// the texts are found at all.
void verifyExplained(const QString& pages, int fewest,
                     const std::function<bool(const SourceText& text, const QString& line)>& wanted) {
    QStringList missing;
    int lines = 0;
    for (const QString& path : filesIn(u"/src"_s, {u"*.cpp"_s})) {
        for (const SourceText& text : test::textsOf(contentOf(path))) {
            for (const QString& part : text.text.split(u'\n')) {
                const QString line = compared(part);
                if (!path.endsWith(u"/main.cpp"_s) && wanted(text, line)) {
                    ++lines;
                    missing += pages.contains(line) ? QStringList() : QStringList(path + u": "_s + line);
                }
            }
        }
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u'\n')));
    QVERIFY(lines > fewest);
}

class TestDocuments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// What a box says stands in the guide's list of messages, or on the page about a data file that is refused.
    void everyMessageIsExplained() {
        static const QRegularExpression statement(u"\\b(select|insert into|delete from)\\b"_s);
        const QString folder = kSources + u"/docs/guide/"_s;
        const QString listed = compared(contentOf(folder + u"messages.md"_s) + contentOf(folder + u"data-file.md"_s));
        verifyExplained(listed, 80, [](const SourceText& text, const QString& line) {
            return text.inBox && !statement.match(line).hasMatch();
        });
    }

    /// Every sentence that the program can show stands on some page of the guide, so that it can be looked up.
    void everySentenceIsInTheGuide() {
        QString guide;
        for (const QString& page : filesIn(u"/docs/guide"_s, {u"*.md"_s})) {
            guide += contentOf(page) + u'\n';
        }
        static const QRegularExpression sentence(
            u"^[A-Za-z'…]\\S*( \\S+){4,}$|^([Pp]lease|Are you|Do you|Can not|can't|No data|Numeric)\\b"_s);
        static const QRegularExpression code(
            u"[=_]|::|'#|^(select|insert|update|delete|from|where|and|or|order|inner|left join|group by|transform|"
            u"create|pragma|with recursive|format|as \\w+,? from|union|having|exists|collate|between|cast)\\b"_s,
            QRegularExpression::CaseInsensitiveOption);
        verifyExplained(compared(guide), 60, [](const SourceText& text, const QString& line) {
            return sentence.match(line).hasMatch() && !code.match(line).hasMatch() && !text.ofAFault;
        });
    }

    /// Links inside the project lead to a file, and to a heading where they name one.
    void everyLinkLeadsSomewhere() {
        static const QRegularExpression link(uR"re(\]\(([^)\s]+)\))re"_s);
        static const QRegularExpression heading(u"^#+ (.*)$"_s, QRegularExpression::MultilineOption);
        int links = 0;
        for (const QString& page : filesIn({}, {u"*.md"_s})) {
            for (auto found = link.globalMatch(contentOf(page)); found.hasNext();) {
                const QString target = found.next().captured(1);
                if (target.contains(u"://"_s)) {
                    continue;
                }
                ++links;
                const QString file = target.section(u'#', 0, 0);
                const QString path = file.isEmpty() ? page : QFileInfo(page).dir().filePath(file);
                QVERIFY2(QFileInfo::exists(path), qPrintable(page + u": "_s + target));
                if (target.contains(u'#')) {
                    QStringList anchors;
                    for (auto line = heading.globalMatch(contentOf(path)); line.hasNext();) {
                        anchors.append(anchorOf(line.next().captured(1)));
                    }
                    QVERIFY2(anchors.contains(target.section(u'#', 1)), qPrintable(page + u": "_s + target));
                }
            }
        }
        QVERIFY(links > 40);
    }

    /// A picture that no page shows was forgotten when the page was changed.
    void everyPictureIsShown() {
        QString pages;
        for (const QString& page : filesIn({}, {u"*.md"_s})) {
            pages += contentOf(page);
        }
        for (const QString& picture : filesIn(u"/docs"_s, {u"*.png"_s})) {
            QVERIFY2(pages.contains(QFileInfo(picture).fileName()), qPrintable(picture));
        }
    }
};

KELVORA_TEST(TestDocuments, "documents");

}  // namespace kelvora::test_documents

#include "test_documents.moc"
