#include "controls/style.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

struct Colours {
    QRgb window, base, alternate, text, button, muted, accent, onAccent;
};

constexpr Colours kLight = {0xfff3f5f6, 0xffffffff, 0xfff6f9fa, 0xff1f2a30,
                            0xffe9edef, 0xff8a979e, 0xff1f6f8b, 0xffffffff};
constexpr Colours kDark = {0xff22292d, 0xff1a2023, 0xff20272b, 0xffe4eaed,
                           0xff2d363b, 0xff7c8a91, 0xff3d93b0, 0xffffffff};

QPalette paletteOf(const Colours& c) {
    QPalette palette(QColor(c.button), QColor(c.window));
    palette.setColor(QPalette::Window, QColor(c.window));
    palette.setColor(QPalette::Base, QColor(c.base));
    palette.setColor(QPalette::AlternateBase, QColor(c.alternate));
    palette.setColor(QPalette::Button, QColor(c.button));
    palette.setColor(QPalette::ToolTipBase, QColor(c.base));
    palette.setColor(QPalette::Highlight, QColor(c.accent));
    palette.setColor(QPalette::HighlightedText, QColor(c.onAccent));
    palette.setColor(QPalette::Link, QColor(c.accent));
    palette.setColor(QPalette::PlaceholderText, QColor(c.muted));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(c.text));
        palette.setColor(QPalette::Disabled, role, QColor(c.muted));
    }
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(c.window));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(c.muted));
    return palette;
}

/// The style keeps what it has painted under the colours of a widget, and each widget has a copy of the application's
/// of its own, under another number: nothing was painted from what is kept, and each opened screen left the names of
/// all it had painted behind. Colours that are the application's go by its own.
void shareColours(const QStyleOption* option) {
    const QPalette shared = QApplication::palette();
    if (option != nullptr && option->palette.cacheKey() != shared.cacheKey() && option->palette == shared) {
        const QPalette::ColorGroup group = option->palette.currentColorGroup();
        auto& colours = const_cast<QStyleOption*>(option)->palette;  // NOLINT(cppcoreguidelines-pro-type-const-cast)
        colours = shared;
        colours.setCurrentColorGroup(group);
    }
}

/// Boxes say what their buttons do in words: no pictures on "Yes" and "No". Text boxes, lists and dates are of one
/// height, so that the rows of forms side by side line up. Options are drawn in the colour of the text, since the
/// style's own rings vanish on a dark ground. A flat frame is its caption alone.
class CalmStyle : public QProxyStyle {
public:
    CalmStyle() : QProxyStyle(u"Fusion"_s) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, result);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (option != nullptr && (type == CT_LineEdit || type == CT_ComboBox || type == CT_SpinBox)) {
            constexpr int edges = 10;
            const int height = option->fontMetrics.height() + edges;
            size.setHeight(type == CT_SpinBox ? height : std::max(size.height(), height));
        }
        return size;
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        shareColours(option);
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        shareColours(option);
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        shareColours(option);
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        if (element == PE_FrameGroupBox && frame != nullptr && frame->features.testFlag(QStyleOptionFrame::Flat)) {
            return;
        }
        if (element != PE_IndicatorRadioButton) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        const QPalette::ColorGroup group = (option->state & State_Enabled) != 0 ? QPalette::Active : QPalette::Disabled;
        const QColor text = option->palette.color(group, QPalette::WindowText);
        const QRectF ring = QRectF(option->rect).adjusted(1.5, 1.5, -1.5, -1.5);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen((option->state & State_HasFocus) != 0 ? QPen(option->palette.highlight(), 2) : QPen(text));
        painter->setBrush(option->palette.brush(group, QPalette::Base));
        painter->drawEllipse(ring);
        if ((option->state & State_On) != 0) {
            const double inset = ring.width() / 4;
            painter->setPen(Qt::NoPen);
            painter->setBrush(text);
            painter->drawEllipse(ring.adjusted(inset, inset, -inset, -inset));
        }
        painter->restore();
    }
};

}  // namespace

void applyStyle(QApplication& application) {
    const bool dark = application.palette().color(QPalette::Window).lightness() < 128;
    QApplication::setStyle(new CalmStyle);
    QApplication::setPalette(paletteOf(dark ? kDark : kLight));
}

}  // namespace kelvora
