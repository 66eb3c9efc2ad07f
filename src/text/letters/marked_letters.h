// SPDX-License-Identifier: MIT
// Latin letters that are another letter with a mark, as Unicode decomposes them: the two Latin
// blocks with single accents and the one with Vietnamese. Look-up tables are made from the list.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vndesk {

// Letters without the mark and with it stand in turns.
struct MarkedLetters {
    char16_t mark;
    std::u16string_view pairs;
};

inline constexpr MarkedLetters kMarkedLetters[] = {
    // clang-format off
    // grave, huyền
    {0x0300, u"AÀEÈIÌOÒUÙaàeèiìoòuùÜǛüǜNǸnǹĒḔēḕŌṐōṑWẀwẁÂẦâầĂẰăằÊỀêềÔỒôồƠỜơờƯỪưừYỲyỳ"},
    // acute, sắc
    {0x0301, u"AÁEÉIÍOÓUÚYÝaáeéiíoóuúyýCĆcćLĹlĺNŃnńRŔrŕSŚsśZŹzźÜǗüǘGǴgǵÅǺåǻÆǼæǽØǾøǿÇḈ"
     u"çḉĒḖēḗÏḮïḯKḰkḱMḾmḿÕṌõṍŌṒōṓPṔpṕŨṸũṹWẂwẃÂẤâấĂẮăắÊẾêếÔỐôốƠỚơớƯỨưứ"},
    // circumflex
    {0x0302, u"AÂEÊIÎOÔUÛaâeêiîoôuûCĈcĉGĜgĝHĤhĥJĴjĵSŜsŝWŴwŵYŶyŷZẐzẑẠẬạậẸỆẹệỌỘọộ"},
    // tilde, ngã
    {0x0303, u"AÃNÑOÕaãnñoõIĨiĩUŨuũVṼvṽÂẪâẫĂẴăẵEẼeẽÊỄêễÔỖôỗƠỠơỡƯỮưữYỸyỹ"},
    // macron
    {0x0304, u"AĀaāEĒeēIĪiīOŌoōUŪuūÜǕüǖÄǞäǟȦǠȧǡÆǢæǣǪǬǫǭÖȪöȫÕȬõȭȮȰȯȱYȲyȳGḠgḡḶḸḷḹṚṜṛṝ"},
    // breve
    {0x0306, u"AĂaăEĔeĕGĞgğIĬiĭOŎoŏUŬuŭȨḜȩḝẠẶạặ"},
    // dot above
    {0x0307, u"CĊcċEĖeėGĠgġIİZŻzżAȦaȧOȮoȯBḂbḃDḊdḋFḞfḟHḢhḣMṀmṁNṄnṅPṖpṗRṘrṙSṠsṡŚṤśṥŠṦšṧ"
     u"ṢṨṣṩTṪtṫWẆwẇXẊxẋYẎyẏſẛ"},
    // diaeresis
    {0x0308, u"AÄEËIÏOÖUÜaäeëiïoöuüyÿYŸHḦhḧÕṎõṏŪṺūṻWẄwẅXẌxẍtẗ"},
    // hook above, hỏi
    {0x0309, u"AẢaảÂẨâẩĂẲăẳEẺeẻÊỂêểIỈiỉOỎoỏÔỔôổƠỞơởUỦuủƯỬưửYỶyỷ"},
    // ring above
    {0x030A, u"AÅaåUŮuůwẘyẙ"},
    // double acute
    {0x030B, u"OŐoőUŰuű"},
    // caron
    {0x030C, u"CČcčDĎdďEĚeěLĽlľNŇnňRŘrřSŠsšTŤtťZŽzžAǍaǎIǏiǐOǑoǒUǓuǔÜǙüǚGǦgǧKǨkǩƷǮʒǯjǰ"
     u"HȞhȟ"},
    // double grave
    {0x030F, u"AȀaȁEȄeȅIȈiȉOȌoȍRȐrȑUȔuȕ"},
    // inverted breve
    {0x0311, u"AȂaȃEȆeȇIȊiȋOȎoȏRȒrȓUȖuȗ"},
    // horn
    {0x031B, u"OƠoơUƯuư"},
    // dot below, nặng
    {0x0323, u"BḄbḅDḌdḍHḤhḥKḲkḳLḶlḷMṂmṃNṆnṇRṚrṛSṢsṣTṬtṭVṾvṿWẈwẉZẒzẓAẠaạEẸeẹIỊiịOỌoọƠỢ"
     u"ơợUỤuụƯỰưựYỴyỵ"},
    // diaeresis below
    {0x0324, u"UṲuṳ"},
    // ring below
    {0x0325, u"AḀaḁ"},
    // comma below
    {0x0326, u"SȘsșTȚtț"},
    // cedilla
    {0x0327, u"CÇcçGĢgģKĶkķLĻlļNŅnņRŖrŗSŞsşTŢtţEȨeȩDḐdḑHḨhḩ"},
    // ogonek
    {0x0328, u"AĄaąEĘeęIĮiįUŲuųOǪoǫ"},
    // circumflex below
    {0x032D, u"DḒdḓEḘeḙLḼlḽNṊnṋTṰtṱUṶuṷ"},
    // breve below
    {0x032E, u"HḪhḫ"},
    // tilde below
    {0x0330, u"EḚeḛIḬiḭUṴuṵ"},
    // macron below
    {0x0331, u"BḆbḇDḎdḏKḴkḵLḺlḻNṈnṉRṞrṟTṮtṯZẔzẕhẖ"},
    // clang-format on
};

// Two stretches of the code hold all of these letters: they share one table.
inline constexpr char32_t kFirstLatin = 0x00C0, kEndLatin = 0x0250;
inline constexpr char32_t kFirstLatinMore = 0x1E00, kEndLatinMore = 0x1F00;
inline constexpr std::size_t kLatinPlaces =
    (kEndLatin - kFirstLatin) + (kEndLatinMore - kFirstLatinMore);

// Where the letter stands in that table; kLatinPlaces for all others.
constexpr std::size_t LatinPlace(char32_t ch) {
    if (ch - kFirstLatin < kEndLatin - kFirstLatin)
        return ch - kFirstLatin;
    if (ch - kFirstLatinMore < kEndLatinMore - kFirstLatinMore)
        return ch - kFirstLatinMore + (kEndLatin - kFirstLatin);
    return kLatinPlaces;
}

struct LetterParts {
    char16_t base = 0; // 0: the letter is not made of others
    char16_t mark = 0;
};

constexpr std::array<LetterParts, kLatinPlaces + 1> MakeLetterParts() {
    std::array<LetterParts, kLatinPlaces + 1> table{};
    for (const MarkedLetters& row : kMarkedLetters)
        for (std::size_t i = 0; i < row.pairs.size(); i += 2)
            table[LatinPlace(row.pairs[i + 1])] = {row.pairs[i], row.mark};
    return table;
}

inline constexpr auto kLetterParts = MakeLetterParts();

// One step: ậ is ạ with a circumflex.
constexpr LetterParts PartsOf(char32_t ch) {
    return kLetterParts[LatinPlace(ch)];
}

} // namespace vndesk
