#pragma once

#include "controls/screen.h"
#include "reports/report_picture.h"

#include <QChartView>

class QAction;
class QSplitter;

namespace kelvora {

/// The picture of a report beside its table, drawn in the desktop's colours. From its context menu it is copied, or
/// saved as PNG or SVG: then on white, as it is printed.
class ReportChart : public QChartView {
    Q_OBJECT

public:
    explicit ReportChart(const Context& context, QWidget* parent = nullptr);

    /// Draws a picture; one without groups says that there is nothing to draw.
    void draw(ReportPicture picture);
    [[nodiscard]] const ReportPicture& picture() const { return m_picture; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void addActions();
    void startAfresh();
    void addBars();
    void addGroupAxis();
    void addValueAxis();
    void applyColours(const QPalette& colours);
    void fitNames();

    /// Paints the picture on white into a device of its size.
    void print(QPaintDevice& device);
    [[nodiscard]] QImage printed();
    /// Throws std::runtime_error in plain words when the file cannot be written.
    void save(const QString& path);

    Context m_context;
    ReportPicture m_picture;
    QAction* m_copy;
    QAction* m_save;
};

/// A table with its picture beside it; the sampler moves the border between them.
QSplitter* besideTable(QWidget* table, ReportChart* chart);

}  // namespace kelvora
