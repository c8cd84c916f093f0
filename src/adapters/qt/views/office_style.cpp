#include "adapters/qt/views/office_style.h"

#include <QStyleOption>
#include <QWidget>

namespace orv {

OfficeStyle::OfficeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

int OfficeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const {
    switch (hint) {
        case SH_LineEdit_PasswordCharacter:
            return '*';
        case SH_ComboBox_Popup:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

/// The plain style measures Japanese words in a menu too narrow and would cut the longest.
QSize OfficeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const {
    const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
    return type == CT_MenuItem && option != nullptr ? plain + QSize(option->fontMetrics.height(), 0) : plain;
}

int OfficeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const bool indicator = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
    return indicator && widget != nullptr ? widget->font().pixelSize() + 1
                                          : QProxyStyle::pixelMetric(metric, option, widget);
}

}  // namespace orv
