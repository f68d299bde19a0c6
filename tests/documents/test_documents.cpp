#include "support/test_main.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_documents {

const QString kSources = u"" KELVORA_SOURCE_FOLDER ""_s;

/// The files below a folder of the project with such a name; those in folders of builds left out.
QStringList filesIn(const QString& folder, const QString& pattern) {
    QStringList paths;
    for (QDirIterator it(kSources + folder, {pattern}, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString path = it.next();
        if (!path.startsWith(kSources + u"/build/"_s)) {
            paths.append(path);
        }
    }
    return paths;
}

QString contentOf(const QStringList& paths) {
    QString all;
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            qFatal("cannot read %s", qPrintable(path));
        }
        all += QString::fromUtf8(file.readAll()) + u'\n';
    }
    return all;
}

/// A text as it is compared: what is filled in is "…", any blanks are one.
QString compared(QString text) {
    return text.replace(QRegularExpression(u"%[1-9]"_s), u"…"_s).simplified();
}

class TestDocuments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// What a box says stands in the guide's list of messages, or on the page about a data file that is refused; every
    /// other sentence that the program can show stands on some page of the guide, so that it can be looked up.
    void everyTextIsExplained() {
        static const QRegularExpression literal(uR"re(\b[u]\x22((?:[^\x22\\\n]|\\.|\x22\s*\n\s*\x22)*)\x22)re"_s);
        static const QRegularExpression seam(uR"re(\x22\s*\n\s*\x22)re"_s);
        static const QRegularExpression box(
            u"^([Pp]lease|Are you|Do you|Can not|can't|Insert|Update|Del|Error|Numeric|No data|No Record)\\b|"
            "\\w{3}[.!?]$|^Complete$"_s);
        static const QRegularExpression sentence(u"^[A-Za-z'…]\\S*( \\S+){4,}$"_s);
        const QString guide = compared(contentOf(filesIn(u"/docs/guide"_s, u"*.md"_s)));
        const QString listed =
            compared(contentOf({kSources + u"/docs/guide/messages.md"_s, kSources + u"/docs/guide/data-file.md"_s}));
        QStringList missing;
        int found = 0;
        for (const QString& path : filesIn(u"/src"_s, u"*.cpp"_s)) {
            // What is said on the command line stands in no guide.
            const QString source = path.endsWith(u"/main.cpp"_s) ? QString() : contentOf({path});
            for (auto texts = literal.globalMatch(source); texts.hasNext();) {
                const QString text = texts.next().captured(1).remove(seam).replace(u"\\\""_s, u"\""_s);
                for (const QString& part : text.split(u"\\n"_s)) {
                    const QString line = compared(part);
                    const bool isSaid = box.match(line).hasMatch();
                    if (isSaid || sentence.match(line).hasMatch()) {
                        ++found;
                        missing += (isSaid ? listed : guide).contains(line) ? QStringList() : QStringList{line};
                    }
                }
            }
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u'\n')));
        QVERIFY(found > 200);  // they are found at all
    }

    /// Links inside the project lead to a file.
    void everyLinkLeadsSomewhere() {
        static const QRegularExpression link(uR"re(\]\(([^)\s]+)\))re"_s);
        int links = 0;
        for (const QString& page : filesIn({}, u"*.md"_s)) {
            for (auto found = link.globalMatch(contentOf({page})); found.hasNext();) {
                const QString target = found.next().captured(1);
                if (target.contains(u"://"_s)) {
                    continue;
                }
                ++links;
                const QString file = target.section(u'#', 0, 0);
                const QString path = file.isEmpty() ? page : QFileInfo(page).dir().filePath(file);
                QVERIFY2(QFileInfo::exists(path), qPrintable(page + u": "_s + target));
            }
        }
        QVERIFY(links > 40);
    }
};

KELVORA_TEST(TestDocuments, "documents");

}  // namespace kelvora::test_documents

#include "test_documents.moc"
