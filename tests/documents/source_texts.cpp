#include "source_texts.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvora::test {
namespace {

/// What a source is made of, as far as its texts are to be found: comments and preprocessor lines, raw strings,
/// strings, characters, ends of statements.
const QRegularExpression& pieces() {
    static const QRegularExpression all(
        uR"re((?<skip>//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|(?<![0-9a-fA-F])'(?:[^'\\\n]|\\.)+'))re"
        R"re(|R"(?<delimiter>[a-z]*)\((?<raw>.*?)\)\k<delimiter>")re"
        R"re(|"(?<text>(?:[^"\\\n]|\\.)*)")re"
        R"re(|(?<end>[;{}]))re"_s,
        QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
    return all;
}

QString unescaped(QString text) {
    return text.replace(u"\\n"_s, u"\n"_s).replace(u"\\\""_s, u"\""_s).replace(u"\\'"_s, u"'"_s);
}

}  // namespace

QList<SourceText> textsOf(const QString& source) {
    static const QRegularExpression box(
        uR"re(\b(message|confirm|confirmAfterExecute|input|refuse|cannotCreate)\()re"_s);
    static const QRegularExpression fault(uR"re(\b(qFatal|std::invalid_argument)\()re"_s);
    static const QRegularExpression between(uR"re(^\s*$)re"_s);
    QList<SourceText> texts;
    qsizetype statement = 0;    // where the statement begins
    qsizetype first = 0;        // its first text
    qsizetype behindText = -1;  // where the text before ended
    const auto endStatement = [&](qsizetype at) {
        const QString whole = source.sliced(statement, at - statement);
        for (; first < texts.size(); ++first) {
            texts[first].inBox = box.match(whole).hasMatch();
            texts[first].ofAFault = fault.match(whole).hasMatch();
        }
        statement = at;
        behindText = -1;
    };
    for (auto found = pieces().globalMatch(source); found.hasNext();) {
        const QRegularExpressionMatch piece = found.next();
        if (piece.hasCaptured(u"end"_s)) {
            endStatement(piece.capturedEnd());
        } else if (piece.hasCaptured(u"text"_s) || piece.hasCaptured(u"raw"_s)) {
            const QString text =
                piece.hasCaptured(u"raw"_s) ? piece.captured(u"raw"_s) : unescaped(piece.captured(u"text"_s));
            const bool follows =
                behindText >= 0 &&
                between.match(source.sliced(behindText, piece.capturedStart() - behindText)).hasMatch();
            if (follows) {
                texts.last().text += text;
            } else {
                texts.append({text});
            }
            behindText = piece.capturedEnd();
        }
    }
    endStatement(source.size());
    return texts;
}

}  // namespace kelvora::test
