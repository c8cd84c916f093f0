#pragma once

#include <array>
#include <string_view>

namespace orv {

/// A regional fair-trade council.
struct Council {
    /// The position in KOUTORI_FLG that is tested, from 1.
    std::size_t position;
    /// The region's name in the question.
    std::string_view region;
    /// The element of chk_Koutori that receives the focus. 中国 and 四国 are exchanged, as they have always been.
    std::size_t focus;
};

inline constexpr Council kHokkaido{1, "北海道", 0};
inline constexpr Council kTohoku{2, "東北地区", 1};
inline constexpr Council kCapital{3, "首都圏", 2};
inline constexpr Council kTokai{4, "東海", 3};
inline constexpr Council kHokuriku{5, "北陸", 4};
inline constexpr Council kKinki{6, "近畿地区", 5};
inline constexpr Council kChugoku{7, "中国地区", 7};
inline constexpr Council kShikoku{8, "四国地区", 6};
inline constexpr Council kKyushu{9, "九州", 8};

/// The prefectures of a council. Unused elements are empty and match nothing.
struct CouncilRow {
    const Council& council;
    std::array<std::string_view, 10> words;
};

// Both tables are searched in order, and the first row with a word in the text decides. 東京都 contains 京都, so the
// capital precedes 近畿.

/// Searched in the name of an association.
inline constexpr auto kByAssociation = std::to_array<CouncilRow>({
    {kHokkaido, {"北海道"}},
    {kTohoku, {"秋田", "青森", "岩手", "山形", "宮城", "福島"}},
    {kCapital, {"神奈川", "東京", "茨城", "山梨", "埼玉", "群馬", "新潟", "千葉", "栃木", "長野"}},
    {kTokai, {"三重", "愛知", "岐阜", "静岡"}},
    {kHokuriku, {"富山", "石川", "福井"}},
    {kKinki, {"兵庫", "滋賀", "京都", "奈良", "大阪", "和歌山"}},
    {kShikoku, {"徳島", "香川", "愛媛", "高知"}},
    {kChugoku, {"鳥取", "広島", "岡山", "島根", "山口"}},
    {kKyushu, {"大分", "福岡", "佐賀", "宮崎", "長崎", "鹿児島", "熊本", "沖縄"}},
});

/// Searched in the licence kind. The list is shorter: a licence of a prefecture not listed asks no question.
inline constexpr auto kByLicence = std::to_array<CouncilRow>({
    {kHokkaido, {"北海道"}},
    {kTohoku, {"秋田", "青森", "岩手", "山形", "宮城", "福島"}},
    {kCapital, {"神奈川", "東京", "埼玉", "千葉"}},
    {kTokai, {"三重", "愛知", "静岡"}},
    {kKinki, {"兵庫", "滋賀", "京都", "奈良", "大阪", "和歌山"}},
    {kShikoku, {"徳島", "香川", "愛媛", "高知"}},
    {kChugoku, {"鳥取", "広島", "島根", "山口"}},
    {kKyushu, {"大分", "福岡", "佐賀", "宮崎", "長崎", "鹿児島", "熊本"}},
});

}  // namespace orv
