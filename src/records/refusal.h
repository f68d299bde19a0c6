#pragma once

#include <QString>

namespace kelvora {

/// What is wrong with an entry, and which of its fields is to be put right.
struct Refusal {
    QString title;  ///< of the box that says so; empty for that of the program
    QString message;
    int field = -1;  ///< its place in the table of its form; -1 if it is none of them
};

}  // namespace kelvora
