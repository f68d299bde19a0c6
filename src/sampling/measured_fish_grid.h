#pragma once

#include "records/gonad_fish.h"

#include <QWidget>

#include <vector>

class QLabel;

namespace kelvora {

class Dialogs;
class Grid;
class TextTable;

/// The fish that are measured but not stored yet, numbered from 1, with a blank row below for the next one. A double
/// click on a fish, or the Delete key, deletes it after a question.
class MeasuredFishGrid : public QWidget {
    Q_OBJECT

public:
    explicit MeasuredFishGrid(Dialogs& dialogs);

    [[nodiscard]] const std::vector<GonadFish>& fish() const { return m_fish; }
    void setFish(std::vector<GonadFish> fish);
    /// Adds a fish at the bottom, and brings it into sight.
    void append(const GonadFish& fish);
    /// Says something about the file that the fish are from, until other fish are in the grid.
    void say(const QString& words = {});

Q_SIGNALS:
    /// The sampler deleted a fish.
    void deleted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void askAndDelete(int row);
    void showFish();

    Dialogs& m_dialogs;
    Grid* m_grid;
    TextTable* m_rows;
    QLabel* m_line;  ///< what SAVE will not store as it stands, and what was said about a file
    std::vector<GonadFish> m_fish;
};

}  // namespace kelvora
