// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/special_chars.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <map>
#include <set>

namespace kelvor {
namespace {

/// The entity of a character by its name in the standard of all characters, "LATIN SMALL LETTER A WITH ACUTE".
std::string entityNamed(UChar32 character) {
    static const std::map<std::string, std::string> signs = {
        {"LESS-THAN SIGN", "lt"},   {"GREATER-THAN SIGN", "gt"}, {"AMPERSAND", "amp"},       {"QUOTATION MARK", "quot"},
        {"NO-BREAK SPACE", "nbsp"}, {"REGISTERED SIGN", "reg"},  {"COPYRIGHT SIGN", "copy"}, {"SPACE", "nbsp"}};
    static const std::map<std::string, std::string> marks = {{"", ""},
                                                             {" WITH GRAVE", "grave"},
                                                             {" WITH ACUTE", "acute"},
                                                             {" WITH CIRCUMFLEX", "circ"},
                                                             {" WITH TILDE", "tilde"},
                                                             {" WITH DIAERESIS", "uml"},
                                                             {" WITH RING ABOVE", "ring"},
                                                             {" WITH CEDILLA", "cedil"},
                                                             {" WITH STROKE", "slash"}};
    char buffer[100] = {};
    UErrorCode failure = U_ZERO_ERROR;
    u_charName(character, U_UNICODE_CHAR_NAME, buffer, sizeof buffer, &failure);
    const std::string name = buffer;
    if (const auto sign = signs.find(name); sign != signs.end()) return "&" + sign->second + ";";
    if (name == "LATIN SMALL LETTER SHARP S") return "&szlig;";
    const bool isSmall = name.starts_with("LATIN SMALL LETTER ");
    const auto begin = std::string(isSmall ? "LATIN SMALL LETTER " : "LATIN CAPITAL LETTER ").size();
    const auto mark = std::min(name.find(" WITH "), name.size());
    std::string letter = name.substr(begin, mark - begin);
    if (isSmall)
        for (char& each : letter) each = static_cast<char>(std::tolower(each));
    return "&" + letter + (letter == "AE" || letter == "ae" ? "lig" : marks.at(name.substr(mark))) + ";";
}

TEST(SpecialChars, HaveTheEntitiesOfTheirNamesAndConvertAllLettersOfLatin1) {
    initSpecialChars();
    std::set<UChar32> converted;
    for (const SpecialCharEntry& row : specialChars) {
        const auto text = icu::UnicodeString::fromUTF8(row.character);
        const UChar32 character = text == "TM" ? 0x2122 : text.char32At(0);
        EXPECT_EQ(row.entity, character == 0x2122 ? "&trade;" : entityNamed(character)) << row.character;
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
