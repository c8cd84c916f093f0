#pragma once

#include <QProxyStyle>

namespace orv {

/// The toolkit's plain style, with what pages need: the classic password sign, lists that open below their box and
/// stand in exactly the colour that the page gives them, and tick boxes as large as their text that
/// take a click anywhere. The buttons of a dialog have the same order on every desktop. Disabled text can be read
/// whatever the desktop's colours.
class OfficeStyle : public QProxyStyle {
public:
    OfficeStyle();

    void polish(QPalette& palette) override;
    using QProxyStyle::polish;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

}  // namespace orv
