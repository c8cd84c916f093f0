#include "adapters/text/look_alikes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace orv {
namespace {

struct LookAlike {
    char32_t typed;
    char32_t written;
};

constexpr auto kLookAlikes = std::to_array<LookAlike>({
    // The apostrophe ends a text in a statement. Input methods type the right quotation mark for it in full width.
    // Every font and terminal has that one, but only some have the full-width apostrophe of a maker's rows.
    {U'\'', U'’'},   {0x00A0, U' '},  // no-break space

    {0x00A2, U'￠'}, {0x00A3, U'￡'}, {0x00A5, U'￥'},  {0x00A6, U'￤'}, {0x00AC, U'￢'},
    {0x00AF, U'￣'}, {0x203E, U'￣'},

    {0x00AB, U'≪'},  {0x00BB, U'≫'},  {0x00B5, U'μ'},   {0x00B7, U'・'}, {0x2022, U'・'},  // bullet
    {0x2027, U'・'}, {0x22C5, U'・'}, {0x00C5, 0x212B},  // A with ring: the angstrom sign
    {0x2126, U'Ω'},

    {0x02BC, U'’'},  {0x201A, U'’'},  {0x201B, U'’'},   {0x201E, U'”'},  {0x201F, U'”'},

    {0x2011, U'‐'},                                                       // no-break hyphen
    {0x2012, U'－'}, {0x2013, U'－'},                                     // en dash
    {0x2212, U'－'},                                                      // minus
    {0xFE63, U'－'}, {0x2014, U'―'},                                      // em dash
    {0xFE58, U'―'},  {0x02DC, U'～'}, {0x223C, U'～'},  {0x301C, U'～'},  // wave dash
    {0x2016, U'∥'},  {0x22EF, U'…'},  {0x30A0, U'＝'},

    {0x2000, U' '},  {0x2001, U'　'}, {0x2002, U' '},   {0x2003, U'　'}, {0x2004, U' '},
    {0x2005, U' '},  {0x2006, U' '},  {0x2007, U' '},   {0x2008, U' '},  {0x2009, U' '},
    {0x200A, U' '},  {0x202F, U' '},  {0x205F, U' '},
});

/// The radicals as separate characters, which texts copied from documents contain instead of the ideographs.
constexpr char32_t kFirstRadical = 0x2F00;
constexpr std::u32string_view kRadicals =
    U"一丨丶丿乙亅二亠人儿入八冂冖冫几凵刀力勹匕匚匸十卜卩厂厶又口囗土士夂夊夕大女子宀寸小尢尸屮山巛工己巾干幺广廴廾"
    U"弋弓彐彡彳心戈戸手支攴文斗斤方无日曰月木欠止歹殳毋比毛氏气水火爪父爻爿片牙牛犬玄玉瓜瓦甘生用田疋疒癶白皮皿目矛"
    U"矢石示禸禾穴立竹米糸缶网羊羽老而耒耳聿肉臣自至臼舌舛舟艮色艸虍虫血行衣襾見角言谷豆豕豸貝赤走足身車辛辰辵邑酉釆"
    U"里金長門阜隶隹雨靑非面革韋韭音頁風飛食首香馬骨高髟鬥鬯鬲鬼魚鳥鹵鹿麥麻黄黍黑黹黽鼎鼓鼠鼻齊齒龍龜龠";
static_assert(kRadicals.size() == 214);

constexpr char32_t kVoiceMark = 0x3099;
/// A voiced kana follows its base kana, a half-voiced one is two after it; ヴ is an exception.
constexpr std::u32string_view kTakesVoice =
    U"かきくけこさしすせそたちつてとはひふへほゝカキクケコサシスセソタチツテトハヒフヘホヽ";
constexpr std::u32string_view kTakesHalfVoice = U"はひふへほハヒフヘホ";

constexpr bool contains(std::u32string_view set, char32_t character) {
    return set.find(character) != std::u32string_view::npos;
}

constexpr bool isHalfWidthKana(char32_t character) { return character >= U'ｦ' && character <= U'ﾝ'; }

}  // namespace

char32_t replaceLookAlike(char32_t character) {
    if (character - kFirstRadical < kRadicals.size()) {
        return kRadicals[character - kFirstRadical];
    }
    const auto found = std::ranges::find(kLookAlikes, character, &LookAlike::typed);
    return found == kLookAlikes.end() ? character : found->written;
}

char32_t voiced(char32_t kana, char32_t mark) {
    if (mark == kVoiceMark && kana == U'ウ') {
        return U'ヴ';
    }
    if (mark == kVoiceMark) {
        return contains(kTakesVoice, kana) ? kana + 1 : 0;
    }
    return contains(kTakesHalfVoice, kana) ? kana + 2 : 0;
}

char32_t spacingMark(char32_t kana, char32_t mark) {
    const bool voice = mark == kVoiceMark;
    if (isHalfWidthKana(kana)) {
        return voice ? U'ﾞ' : U'ﾟ';
    }
    return voice ? U'゛' : U'゜';
}

}  // namespace orv
