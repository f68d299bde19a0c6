#include "controls/style.h"

#include <QApplication>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

#include <algorithm>

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

/// Boxes say what their buttons do in words: no pictures on "Yes" and "No". Text boxes are as high as lists and dates,
/// so that the rows of forms side by side line up.
class CalmStyle : public QProxyStyle {
public:
    CalmStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons ? 0 : QProxyStyle::styleHint(hint, option, widget, result);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override {
        QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        if (option != nullptr && (type == CT_LineEdit || type == CT_ComboBox || type == CT_SpinBox)) {
            constexpr int edges = 10;
            size.setHeight(std::max(size.height(), option->fontMetrics.height() + edges));
        }
        return size;
    }
};

}  // namespace

void applyStyle(QApplication& application) {
    const bool dark = application.palette().color(QPalette::Window).lightness() < 128;
    QApplication::setStyle(new CalmStyle);
    QApplication::setPalette(paletteOf(dark ? kDark : kLight));
}

}  // namespace kelvora
