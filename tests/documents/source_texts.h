#pragma once

#include <QString>
#include <QStringList>

namespace kelvora::test {

/// A string literal of the program's sources, those that follow each other joined.
struct SourceText {
    QString text;
    bool inBox = false;     ///< in a statement that shows a box
    bool ofAFault = false;  ///< in one that reports a fault of the program itself
};

/// The string literals of a C++ source, without those of comments and preprocessor lines.
QList<SourceText> textsOf(const QString& source);

}  // namespace kelvora::test
