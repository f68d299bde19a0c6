#include "support/test_main.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvora::test_documents {

const QString kSources = u"" KELVORA_SOURCE_FOLDER ""_s;

QString contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(path));
    }
    return QString::fromUtf8(file.readAll());
}

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

/// All pages of the project, of a folder or one of them.
QString pages(const QString& folder, const QString& pattern = u"*.md"_s) {
    QString all;
    for (const QString& page : filesIn(folder, pattern)) {
        all += contentOf(page) + u'\n';
    }
    return all;
}

/// A text as it is compared: what is filled in is "…", any blanks are one.
QString compared(QString text) {
    return text.replace(QRegularExpression(u"%[1-9]"_s), u"…"_s).simplified();
}

/// A string literal of the sources, those that follow each other joined, and the statement it stands in.
struct SourceText {
    QString text, statement;
};

/// The string literals of a source, without those of comments and preprocessor lines.
QList<SourceText> textsOf(const QString& source) {
    static const QRegularExpression pieces(
        uR"re((?<skip>//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|(?<![0-9a-fA-F])'(?:[^'\\\n]|\\.)+'))re"
        R"re(|R\x22(?<delimiter>[a-z]*)\((?<raw>.*?)\)\k<delimiter>\x22)re"
        R"re(|\x22(?<text>(?:[^\x22\\\n]|\\.)*)\x22|(?<end>[;{}]))re"_s,
        QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
    QList<SourceText> texts;
    qsizetype begin = 0;    // of the statement
    qsizetype first = 0;    // its first text
    qsizetype behind = -1;  // where the text before ended
    for (auto found = pieces.globalMatch(source); found.hasNext();) {
        const QRegularExpressionMatch piece = found.next();
        if (piece.hasCaptured(u"end"_s)) {
            for (; first < texts.size(); ++first) {
                texts[first].statement = source.sliced(begin, piece.capturedEnd() - begin);
            }
            begin = piece.capturedEnd();
            behind = -1;
        } else if (!piece.hasCaptured(u"skip"_s)) {
            QString text = piece.captured(u"raw"_s) + piece.captured(u"text"_s);
            text.replace(u"\\n"_s, u"\n"_s).replace(u"\\\""_s, u"\""_s).replace(u"\\'"_s, u"'"_s);
            if (behind >= 0 && source.mid(behind, piece.capturedStart() - behind).trimmed().isEmpty()) {
                texts.last().text += text;
            } else {
                texts.append({text, {}});
            }
            behind = piece.capturedEnd();
        }
    }
    return texts;
}

class TestDocuments : public QObject {
    Q_OBJECT

private Q_SLOTS:
    /// What a box says stands in the guide's list of messages, or on the page about a data file that is refused; every
    /// other sentence that the program can show stands on some page of the guide, so that it can be looked up.
    void everyTextIsExplained() {
        static const QRegularExpression box(
            uR"re(\b(message|confirm|confirmAfterExecute|input|refuse|cannotCreate)\()re"_s);
        static const QRegularExpression fault(uR"re(\b(qFatal|std::invalid_argument)\()re"_s);
        static const QRegularExpression sentence(
            u"^[A-Za-z'…]\\S*( \\S+){4,}$|^([Pp]lease|Are you|Do you|Can not|can't|No data|Numeric)\\b"_s);
        static const QRegularExpression query(u"\\b(select|insert into|delete from)\\b"_s);
        static const QRegularExpression code(
            u"[=_]|::|'#|^(select|insert|update|delete|from|where|and|or|order|inner|left join|group by|transform|"
            u"create|pragma|with recursive|format|as \\w+,? from|union|having|exists|collate|between|cast)\\b"_s,
            QRegularExpression::CaseInsensitiveOption);
        const QString listed =
            compared(pages(u"/docs/guide"_s, u"messages.md"_s) + pages(u"/docs/guide"_s, u"data-file.md"_s));
        const QString guide = compared(pages(u"/docs/guide"_s));
        QStringList missing;
        int found = 0;
        for (const QString& path : filesIn(u"/src"_s, u"*.cpp"_s)) {
            // What is said on the command line stands in no guide.
            for (const SourceText& text : textsOf(path.endsWith(u"/main.cpp"_s) ? QString() : contentOf(path))) {
                for (const QString& part : text.text.split(u'\n')) {
                    const QString line = compared(part);
                    const bool isMessage = box.match(text.statement).hasMatch() && !query.match(line).hasMatch();
                    const bool isSentence = sentence.match(line).hasMatch() && !code.match(line).hasMatch() &&
                                            !fault.match(text.statement).hasMatch();
                    found += (isMessage ? 1 : 0) + (isSentence ? 1 : 0);
                    if ((isMessage && !listed.contains(line)) || (isSentence && !guide.contains(line))) {
                        missing.append(path + u": "_s + line);
                    }
                }
            }
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(u'\n')));
        QVERIFY(found > 150);  // they are found at all
    }

    /// Links inside the project lead to a file, and to a heading where they name one.
    void everyLinkLeadsSomewhere() {
        static const QRegularExpression link(uR"re(\]\(([^)\s]+)\))re"_s);
        static const QRegularExpression marks(u"[^\\w\\- ]"_s);
        static const QRegularExpression heading(u"^#+ (.*)$"_s, QRegularExpression::MultilineOption);
        int links = 0;
        for (const QString& page : filesIn({}, u"*.md"_s)) {
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
                        const QString text = line.next().captured(1).trimmed().toLower();
                        anchors.append(QString(text).remove(marks).replace(u' ', u'-'));
                    }
                    QVERIFY2(anchors.contains(target.section(u'#', 1)), qPrintable(page + u": "_s + target));
                }
            }
        }
        QVERIFY(links > 40);
    }

    /// A picture that no page shows was forgotten when the page was changed.
    void everyPictureIsShown() {
        const QString all = pages({});
        for (const QString& picture : filesIn(u"/docs"_s, u"*.png"_s)) {
            QVERIFY2(all.contains(QFileInfo(picture).fileName()), qPrintable(picture));
        }
    }
};

KELVORA_TEST(TestDocuments, "documents");

}  // namespace kelvora::test_documents

#include "test_documents.moc"
