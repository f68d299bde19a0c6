#pragma once

#include <QAbstractItemModel>
#include <QGroupBox>
#include <QTableView>

#include <memory>
#include <vector>

class QHBoxLayout;
class QPushButton;

namespace kelvora {

class RecordNavigator;

/// A column of a grid: its caption, its starting width in pixels at 96 dpi, its alignment.
struct GridColumn {
    QString caption;
    int width = 100;
    Qt::Alignment alignment = Qt::AlignLeft;
    bool hidden = false;
};

using GridColumns = std::vector<GridColumn>;

/// A table to read: selects whole rows, copies them as tab-separated text (Ctrl+C), is never edited in place. Columns
/// keep their starting widths in proportion when the window grows; where room is short, the widest one (the names)
/// gives way, so that the numbers beside it stay whole. Captions are the grid's, whatever its source.
class Grid : public QTableView {
    Q_OBJECT

public:
    /// The name is what a screen reader calls the grid.
    explicit Grid(const QString& name, QWidget* parent = nullptr);
    ~Grid() override;

    /// Shows a source under the given columns; the grid owns it.
    void show(std::unique_ptr<QAbstractItemModel> source, GridColumns columns);
    /// Shows a source that a screen keeps; it must live as long as the grid shows it.
    void show(QAbstractItemModel* source, GridColumns columns);
    /// The columns and one blank row: a grid without data.
    void showBlank(GridColumns columns);

    [[nodiscard]] int rowCount() const;
    /// The text of a cell as shown; empty outside the grid.
    [[nodiscard]] QString text(int row, int column) const;
    [[nodiscard]] QStringList headers() const;
    /// The selected row; -1 if there is none.
    [[nodiscard]] int currentRow() const;
    void setCurrentRow(int row);
    /// Scrolls to the last row with a text in a column; the selected row stays the same.
    void bringIntoView(int column, const QString& text);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The sampler went to a row of the grid.
    void rowChosen(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void copySelection() const;
    [[nodiscard]] std::vector<int> wantedWidths(bool tight) const;
    void fitColumns();

    class Presented;
    std::unique_ptr<Presented> m_presented;
    std::unique_ptr<QAbstractItemModel> m_source;
    GridColumns m_columns;
    int m_names = -1;  ///< the column that gives way: the widest one, if there is one
};

/// A grid in a frame with its caption, and room under it for its navigator and buttons.
class CaptionedGrid : public QGroupBox {
    Q_OBJECT

public:
    explicit CaptionedGrid(const QString& caption, QWidget* parent = nullptr);

    [[nodiscard]] Grid* grid() const { return m_grid; }
    /// The caption of the frame, and the name of the grid for a screen reader.
    void setCaption(const QString& caption);

    /// Puts a navigator under the grid and keeps the two on the same row. With a new result the grid shows it first,
    /// and then the navigator gets its row count.
    RecordNavigator* addNavigator(const QString& name);
    /// Puts a button under the grid, behind the navigator.
    QPushButton* addButton(const QString& caption);

private:
    Grid* m_grid;
    QHBoxLayout* m_footer;
};

}  // namespace kelvora
