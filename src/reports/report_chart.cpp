#include "reports/report_chart.h"

#include "controls/dialogs.h"
#include "controls/screen.h"
#include "data/store_files.h"

#include <QAction>
#include <QBarSet>
#include <QBuffer>
#include <QCategoryAxis>
#include <QChart>
#include <QClipboard>
#include <QEvent>
#include <QFileInfo>
#include <QGraphicsLayout>
#include <QGuiApplication>
#include <QHorizontalStackedBarSeries>
#include <QLegend>
#include <QSplitter>
#include <QStackedBarSeries>
#include <QSvgGenerator>
#include <QValueAxis>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Colours that differ for colour-blind eyes, on white and on dark ground: M. Okabe and K. Ito, Color Universal Design,
/// 2008, without their black.
constexpr std::array<QRgb, 7> kColours = {0xff0072b2, 0xffe69f00, 0xff009e73, 0xffcc79a7,
                                          0xff56b4e9, 0xffd55e00, 0xfff0e442};

/// The months in the colours of their seasons, each darker or lighter than its neighbours, so that they are told apart
/// on both grounds and without any colour at all.
constexpr std::array<QRgb, 12> kMonthColours = {0xff1f5fa8, 0xff8cc5f0, 0xff00796b, 0xff7fd6a0, 0xff3f8f2f, 0xffb9cf3c,
                                                0xffb87a00, 0xfff2c230, 0xffa63d12, 0xfff4a582, 0xff8e2c77, 0xffd0a5e6};

/// A text as the chart takes it: short enough, and with its markup as it is written.
QString label(const QString& text, qsizetype longest) {
    const QString line = text.left(longest * 2).simplified();
    return (line.size() > longest ? line.left(longest - 1) + u'…' : line).toHtmlEscaped();
}

/// Two groups may have one name; an axis would put them together. What tells them apart takes no room.
QString uniqueName(const QString& text, qsizetype group) {
    constexpr char16_t none = 0x200b;
    return text + QString(group + 1, QChar(none));
}

QPalette onPaper() {
    QPalette colours(Qt::white);
    colours.setColor(QPalette::Base, Qt::white);
    colours.setColor(QPalette::Text, QColor(0xff1f2a30));
    return colours;
}

QColor between(const QColor& one, const QColor& other, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

/// The colour of a number. Behind the last the colours come again, nearer to that of the text.
template <std::size_t Count>
QColor colourOf(const std::array<QRgb, Count>& colours, int number, const QColor& text) {
    const auto at = static_cast<std::size_t>(number);
    const QColor colour(colours.at(at % Count));
    constexpr double nearer = 0.5;
    return at < Count ? colour : between(colour, text, nearer);
}

}  // namespace

ReportChart::ReportChart(const Context& context, QWidget* parent)
    : QChartView(parent),
      m_context(context),
      m_copy(new QAction(u"Copy picture"_s, this)),
      m_save(new QAction(u"Save picture as PNG or SVG…"_s, this)) {
    setAccessibleName(u"Picture"_s);
    setFocusPolicy(Qt::StrongFocus);
    setRenderHint(QPainter::Antialiasing);
    setFrameShape(QFrame::StyledPanel);
    addActions();
    draw({});
}

void ReportChart::addActions() {
    setContextMenuPolicy(Qt::ActionsContextMenu);
    m_copy->setShortcut(QKeySequence::Copy);
    m_copy->setShortcutContext(Qt::WidgetShortcut);
    connect(m_copy, &QAction::triggered, this,
            guarded(m_context.dialogs, [this] { QGuiApplication::clipboard()->setImage(printed()); }));
    connect(m_save, &QAction::triggered, this, guarded(m_context.dialogs, [this] {
                if (const std::optional<QString> path = m_context.dialogs.savePictureFile()) {
                    save(*path);
                }
            }));
    addAction(m_copy);
    addAction(m_save);
}

void ReportChart::draw(ReportPicture picture) {
    m_picture = std::move(picture);
    startAfresh();
    const bool any = !m_picture.groups.isEmpty();
    constexpr qsizetype longestTitle = 80;
    chart()->setTitle(any ? label(m_picture.title, longestTitle) : QString());
    chart()->legend()->setVisible(m_picture.series.size() > 1);
    m_copy->setEnabled(any);
    m_save->setEnabled(any);
    if (any) {
        addBars();
        addGroupAxis();
        addValueAxis();
    }
    applyColours(palette());
    viewport()->update();
}

/// An empty chart: bars and axes of the one before stay visible until the program is idle again.
void ReportChart::startAfresh() {
    const std::unique_ptr<QChart> before(chart());
    setChart(new QChart);
    chart()->setBackgroundRoundness(0);
    chart()->setMargins({8, 4, 12, 4});
    chart()->layout()->setContentsMargins(0, 0, 0, 0);
    chart()->setLocalizeNumbers(true);
    chart()->legend()->setAlignment(Qt::AlignRight);
    chart()->legend()->setMarkerShape(QLegend::MarkerShapeRectangle);
}

void ReportChart::addBars() {
    QAbstractBarSeries* bars = nullptr;
    if (m_picture.standing) {
        bars = new QStackedBarSeries(chart());
    } else {
        bars = new QHorizontalStackedBarSeries(chart());
    }
    constexpr qsizetype longestName = 20;
    constexpr double wide = 0.92;
    constexpr double narrow = 0.72;
    for (const PictureSeries& series : m_picture.series) {
        auto* set = new QBarSet(label(series.name, longestName), bars);
        for (std::size_t k = 0; k < series.values.size(); ++k) {
            set->append(series.values[m_picture.standing ? k : series.values.size() - 1 - k]);
        }
        bars->append(set);
    }
    const qsizetype groups = m_picture.groups.size();
    // One or two bars stay bars, and do not fill the picture.
    constexpr double fullWidthFrom = 5;
    bars->setBarWidth(groups > kMostBars ? wide : narrow * std::min(1.0, static_cast<double>(groups) / fullWidthFrom));
    chart()->addSeries(bars);
}

void ReportChart::addGroupAxis() {
    const qsizetype groups = m_picture.groups.size();
    constexpr qsizetype longestName = 32;
    // Only as many groups are named as can be read side by side.
    constexpr qsizetype mostNames = 16;
    const qsizetype every = (groups + mostNames - 1) / mostNames;
    auto* axis = new QCategoryAxis(chart());
    axis->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    axis->setStartValue(-1);
    for (qsizetype place = 0; place < groups; place += every) {
        // A lying axis counts from below.
        const qsizetype group = m_picture.standing ? place : groups - 1 - place;
        axis->append(uniqueName(label(m_picture.groups[group], longestName), group), static_cast<double>(place));
    }
    axis->setRange(-0.5, static_cast<double>(groups) - 0.5);
    axis->setTruncateLabels(false);
    axis->setGridLineVisible(false);
    axis->setTitleText(label(m_picture.groupTitle, longestName * 2));
    chart()->addAxis(axis, m_picture.standing ? Qt::AlignBottom : Qt::AlignLeft);
    chart()->series().first()->attachAxis(axis);
}

void ReportChart::addValueAxis() {
    const PictureScale scale = scaleOf(m_picture);
    auto* axis = new QValueAxis(chart());
    axis->setRange(scale.from, scale.to);
    axis->setTickType(QValueAxis::TicksDynamic);
    axis->setTickInterval(scale.step);
    const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(scale.step))));
    axis->setLabelFormat(u"%.%1f"_s.arg(decimals));
    axis->setTitleText(label(m_picture.valueTitle, qsizetype{kMostBars} * 4));
    chart()->addAxis(axis, m_picture.standing ? Qt::AlignLeft : Qt::AlignBottom);
    chart()->series().first()->attachAxis(axis);
}

void ReportChart::applyColours(const QPalette& colours) {
    const QColor ground = colours.color(QPalette::Base);
    const QColor text = colours.color(QPalette::Text);
    const QColor line = between(ground, text, 0.18);
    setBackgroundBrush(ground);
    chart()->setBackgroundBrush(ground);
    QFont title = font();
    title.setBold(true);
    chart()->setTitleFont(title);
    chart()->setTitleBrush(text);
    chart()->legend()->setLabelColor(text);
    chart()->legend()->setFont(font());
    for (QAbstractAxis* axis : chart()->axes()) {
        axis->setLabelsFont(font());
        axis->setTitleFont(font());
        axis->setLabelsBrush(text);
        axis->setTitleBrush(text);
        axis->setLinePenColor(between(ground, text, 0.5));
        axis->setGridLineColor(line);
        axis->setShadesVisible(false);
    }
    // A thin gap between stacked bars; bars that are thin themselves have none.
    constexpr qsizetype few = 40;
    const QPen edge = m_picture.groups.size() > few ? QPen(Qt::NoPen) : QPen(ground, 1);
    for (QAbstractSeries* series : chart()->series()) {
        std::size_t place = 0;
        for (QBarSet* set : qobject_cast<QAbstractBarSeries*>(series)->barSets()) {
            set->setPen(edge);
            const int number = m_picture.series[place++].colour;
            set->setColor(m_picture.byMonth ? colourOf(kMonthColours, number, text) : colourOf(kColours, number, text));
        }
    }
    fitNames();
}

/// The names beside lying bars are as high as the room for a bar, so that none is cut off.
void ReportChart::fitNames() {
    const auto names = chart()->axes(Qt::Vertical);
    if (names.isEmpty() || m_picture.standing) {
        return;
    }
    constexpr int aroundTheBars = 90;
    constexpr int smallest = 6;
    constexpr int between = 3;
    const auto room = (viewport()->height() - aroundTheBars) / std::max<qsizetype>(1, m_picture.groups.size());
    QFont font = this->font();
    font.setPixelSize(QFontInfo(font).pixelSize());
    while (font.pixelSize() > smallest && QFontMetrics(font).height() + between > room) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    names.first()->setLabelsFont(font);
}

QSize ReportChart::sizeHint() const {
    return {480, 320};
}

void ReportChart::paintEvent(QPaintEvent* event) {
    QChartView::paintEvent(event);
    if (m_picture.groups.isEmpty()) {
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect(), static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap),
                         u"The picture of the table is drawn here when it has rows."_s);
    }
}

void ReportChart::resizeEvent(QResizeEvent* event) {
    QChartView::resizeEvent(event);
    fitNames();
}

void ReportChart::changeEvent(QEvent* event) {
    QChartView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        applyColours(palette());
    }
}

void ReportChart::print(QPaintDevice& device) {
    applyColours(onPaper());
    QPainter painter(&device);
    painter.setRenderHint(QPainter::Antialiasing);
    render(&painter, QRectF(QPointF(), viewport()->size()), viewport()->rect());
    painter.end();
    applyColours(palette());
}

QImage ReportChart::printed() {
    constexpr int sharpness = 2;
    QImage image(viewport()->size() * sharpness, QImage::Format_RGB32);
    image.setDevicePixelRatio(sharpness);
    image.fill(Qt::white);
    print(image);
    return image;
}

void ReportChart::save(const QString& path) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    if (QFileInfo(path).suffix().compare(u"svg", Qt::CaseInsensitive) == 0) {
        QSvgGenerator drawing;
        drawing.setOutputDevice(&bytes);
        drawing.setSize(viewport()->size());
        drawing.setViewBox(viewport()->rect());
        drawing.setTitle(m_picture.title);
        print(drawing);
    } else {
        printed().save(&bytes, "PNG");
    }
    writeWholeFile(path, bytes.data(), u"The picture could not be written"_s, m_context.databasePath);
}

QSplitter* besideTable(QWidget* table, ReportChart* chart) {
    auto* splitter = new QSplitter(Qt::Horizontal);
    splitter->addWidget(table);
    splitter->addWidget(chart);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({600, 700});
    splitter->setHandleWidth(10);
    return splitter;
}

}  // namespace kelvora
