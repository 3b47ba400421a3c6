// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/special_chars.h"

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <map>
#include <set>

namespace kelvor {
namespace {

/// The entity of a character: those of letters with marks are named after the two.
std::string entityOf(UChar32 character) {
    static const std::map<UChar32, std::string> signs = {
        {'<', "lt"},       {'>', "gt"},      {'&', "amp"},    {'"', "quot"},    {' ', "nbsp"},
        {0xA0, "nbsp"},    {0xA9, "copy"},   {0xAE, "reg"},   {0xC6, "AElig"},  {0xE6, "aelig"},
        {0xD8, "Oslash"},  {0xF8, "oslash"}, {0xDF, "szlig"}, {0x300, "grave"}, {0x301, "acute"},
        {0x302, "circ"},   {0x303, "tilde"}, {0x308, "uml"},  {0x30A, "ring"},  {0x327, "cedil"},
        {0x2122, "trade"}, {0xD0, "ETH"},    {0xF0, "eth"},   {0xDE, "THORN"},  {0xFE, "thorn"}};
    UErrorCode failure = U_ZERO_ERROR;
    icu::UnicodeString parts;
    if (!icu::Normalizer2::getNFDInstance(failure)->getDecomposition(character, parts))
        return "&" + signs.at(character) + ";";
    return std::string("&") + static_cast<char>(parts[0]) + signs.at(parts[1]) + ";";
}

TEST(SpecialChars, HaveTheEntitiesOfTheirNamesAndConvertAllLettersOfLatin1) {
    initSpecialChars();
    std::set<UChar32> converted;
    for (const SpecialCharEntry& row : specialChars) {
        const auto text = icu::UnicodeString::fromUTF8(row.character);
        const UChar32 character = text == "TM" ? 0x2122 : text.char32At(0);
        EXPECT_EQ(row.entity, entityOf(character)) << row.character;
        EXPECT_TRUE(text == "TM" || text.countChar32() == 1) << row.character;
        if (row.convertible == 1) converted.insert(character);
    }
    std::set<UChar32> letters;
    for (UChar32 character = 0xC0; character <= 0xFF; ++character)
        if (u_isalpha(character)) letters.insert(character);
    EXPECT_EQ(converted, letters);
}

}  // namespace
}  // namespace kelvor
