#pragma once

#include <QProxyStyle>

namespace orv {

/// The toolkit's plain style with additions for the pages. Passwords show the classic sign. Lists open below their box
/// and have exactly the colour that the page gives them. Tick boxes are as large as their text and can be clicked
/// anywhere. The buttons of a dialog have the same order on every desktop. Disabled text is readable in the colours of
/// every desktop.
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
