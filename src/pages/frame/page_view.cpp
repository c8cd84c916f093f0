#include "pages/frame/page_frame.h"

#include <array>
#include <span>
#include <string>

#include "logging/trap.h"
#include "pages/forms/form_helpers.h"
#include "pages/forms/page_set.h"

namespace orv {
namespace {

/// A filled box between two corners, with an optional heading. A right edge of 0 or less is relative to the right edge
/// of the page.
struct Bar {
    Point from;
    Point to;
    Colour colour = kBar;
    std::string_view heading = {};
    Point headingAt = {};
};

constexpr int kToTheRight = -10;
constexpr int kTopBand = 55;
constexpr int kBottomBand = 40;
constexpr int kLegendRise = 26;
constexpr Point kLegendBox{16, 12};
constexpr int kHeadingSize = 9;
constexpr int kTitleSize = 15;

// clang-format off
constexpr auto kBars0 = std::to_array<Bar>({
    {{126,  84}, {kToTheRight, 102}, kBar, "　事務所・店舗情報", {126,  87}},
    {{126, 290}, {kToTheRight, 308}, kBar, "　ＰＣ設置場所",     {126, 293}},
    {{126, 448}, {kToTheRight, 466}, kBar, "　反響・問い合わせ", {126, 451}},
    {{238, 311}, {338, 335}, kGroupBox},
});

constexpr auto kBars1 = std::to_array<Bar>({
    {{126,  84}, {616, 102}, kBar, " 宅建免許証",               {126,  87}},
    {{497, 175}, {771, 193}, kBar, " 公正取引協議会加盟事業者", {497, 178}},
    {{205, 178}, {488, 355}, kGroupBox},
    {{497, 199}, {771, 313}, kGroupBox},
});

constexpr auto kBars2 = std::to_array<Bar>({
    {{126,  80}, {kToTheRight, 102}, kBar, " 交通情報",       {126,  85}},
    {{126, 194}, {kToTheRight, 212}, kBar, kOtherHeading,     {126, 197}},
    {{126, 343}, {259, 361},         kBar, kPhotoHeadings[0], {126, 346}},
    {{261, 343}, {394, 361},         kBar, kPhotoHeadings[1], {261, 346}},
});

constexpr auto kBars3 = std::to_array<Bar>({
    {{126,  63}, {kToTheRight,  81}, kBar, "　取扱種別", {126,  66}},
    {{126, 337}, {kToTheRight, 355}, kBar, "　業務内容", {126, 340}},
    {{185,  87}, {424, 198}, kGroupBox},
    {{493,  87}, {761, 198}, kGroupBox},
    {{185, 203}, {313, 332}, kGroupBox},
    {{381, 203}, {782, 332}, kGroupBox},
    {{185, 364}, {292, 504}, kGroupBox},
    {{381, 364}, {579, 504}, kGroupBox},
    {{640, 364}, {782, 504}, kGroupBox},
});

constexpr auto kBars4 = std::to_array<Bar>({
    {{126,  77}, {kToTheRight,  97}, kNoticeBar,
     " *この情報はお客様設定送信時にゼンタへ転送いたします。（内容は変更できません。）", {126,  81}},
    {{126, 105}, {435, 123},         kBar, "　ＯＳ",         {126, 108}},
    {{441, 105}, {kToTheRight, 123}, kBar, "　システム",     {441, 108}},
    {{126, 245}, {kToTheRight, 263}, kBar, "　ネットワーク", {126, 248}},
    {{126, 301}, {kToTheRight, 319}, kBar, "　その他",       {126, 304}},
});
// clang-format on

void fill(Form& form, Point from, Point to, Colour colour) {
    form.canvas().draw(DrawnBox{{from.x, from.y, to.x - from.x, to.y - from.y}, colour});
}

void write(Form& form, Point at, std::string_view text, int size) {
    form.canvas().draw(
        DrawnText{.at = at, .text = std::string(text), .fontSize = size, .bold = true, .colour = kHeading});
}

void drawBar(Form& form, const Bar& bar) {
    const int right = bar.to.x > 0 ? bar.to.x : form.scaleWidth() + bar.to.x;
    fill(form, bar.from, {right, bar.to.y}, bar.colour);
    if (!bar.heading.empty()) {
        write(form, bar.headingAt, bar.heading, kHeadingSize);
    }
}

/// Drawn on the lower band, on pages that have required fields.
void drawLegend(Form& form) {
    const int top = form.scaleHeight() - kLegendRise;
    fill(form, {126, top}, {126 + kLegendBox.x, top + kLegendBox.y}, kRequiredField);
    write(form, {146, top}, "の欄は入力が必要です", kHeadingSize);
}

enum class Legend { No, Yes };

bool P_MakeCompNView(std::string_view label, Form& form, std::span<const Bar> bars, Legend legend) {
    return trapped(label, [&] {
        const int width = form.scaleWidth();
        const int height = form.scaleHeight();
        drawStripes(form);
        fill(form, {0, 0}, {width, kTopBand}, kBand);
        fill(form, {0, height - kBottomBand}, {width, height}, kBand);
        for (const Bar& bar : bars) {
            drawBar(form, bar);
        }
        if (legend == Legend::Yes) {
            drawLegend(form);
        }
        write(form, {126, 5}, "設定/お客様情報", kTitleSize);
    });
}

}  // namespace

bool P_MakeComp0View() { return P_MakeCompNView("[ P_MakeComp0View ] ", pageAt(0), kBars0, Legend::Yes); }
bool P_MakeComp1View() { return P_MakeCompNView("[ P_MakeComp1View ] ", pageAt(1), kBars1, Legend::Yes); }
bool P_MakeComp2View() { return P_MakeCompNView("[ P_MakeComp2View ] ", pageAt(2), kBars2, Legend::No); }
bool P_MakeComp3View() { return P_MakeCompNView("[ P_MakeComp3View ] ", pageAt(3), kBars3, Legend::No); }
bool P_MakeComp4View() { return P_MakeCompNView("[ P_MakeComp4View ] ", pageAt(4), kBars4, Legend::No); }

}  // namespace orv
