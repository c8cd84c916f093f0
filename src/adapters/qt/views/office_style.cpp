#include "adapters/qt/views/office_style.h"

#include <QDialogButtonBox>
#include <QStyleOption>
#include <QWidget>
#include <array>
#include <utility>

#include "adapters/qt/views/qt_text.h"

namespace orv {
namespace {

/// Weakens the text's colour, for disabled text.
QColor dimmed(const QColor& text, const QColor& background) {
    const auto mixed = [](int strong, int weak) { return (strong * 7 + weak * 3) / 10; };
    return {mixed(text.red(), background.red()), mixed(text.green(), background.green()),
            mixed(text.blue(), background.blue())};
}

}  // namespace

OfficeStyle::OfficeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void OfficeStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    constexpr std::array<std::pair<QPalette::ColorRole, QPalette::ColorRole>, 3> kPairs{{
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button},
    }};
    for (const auto& [text, background] : kPairs) {
        palette.setColor(QPalette::Disabled, text, dimmed(palette.color(text), palette.color(background)));
    }
}

int OfficeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const {
    switch (hint) {
        case SH_LineEdit_PasswordCharacter:
            return '*';
        case SH_ComboBox_Popup:
            return 0;
        case SH_DialogButtonLayout:
            return QDialogButtonBox::WinLayout;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

/// The plain style underestimates the width of Japanese words in a menu and would cut the longest.
QSize OfficeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    return type == CT_MenuItem && option != nullptr ? plain + QSize(option->fontMetrics.height(), 0) : plain;
}

/// The plain style shades a list towards white, which hides the colour of a field that must be filled.
void OfficeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                     const QWidget* widget) const {
    if (control != CC_ComboBox || option == nullptr) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionFrame field;
    field.QStyleOption::operator=(*option);
    field.lineWidth = 1;
    drawPrimitive(PE_PanelLineEdit, &field, painter, widget);
    field.rect = subControlRect(CC_ComboBox, option, SC_ComboBoxArrow, widget);
    drawPrimitive(PE_IndicatorArrowDown, &field, painter, widget);
}

/// A tick box is coloured as a whole, so it can be clicked anywhere and not only on its words.
QRect OfficeStyle::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
    if (element == SE_CheckBoxClickRect && option != nullptr) {
        return option->rect;
    }
    const QRect plain = QProxyStyle::subElementRect(element, option, widget);
    const bool field = element == SE_LineEditContents && widget != nullptr;
    return field ? plain.translated(0, -textLift(widget->font())) : plain;
}

int OfficeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const bool indicator = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
    return indicator && widget != nullptr ? widget->font().pixelSize() + 1
                                          : QProxyStyle::pixelMetric(metric, option, widget);
}

}  // namespace orv
