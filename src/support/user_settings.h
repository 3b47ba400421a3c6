// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/settings.h"

namespace kelvor {

/// One value that the user keeps between two runs. What stands for a missing one and how the text is read is the
/// reader's to say: two readers of the same value may differ.
class UserSetting {
public:
    constexpr explicit UserSetting(std::string_view key) : key_(key) {}

    /// @param standard  for a value that is not there
    std::string text(std::string_view standard = {}) const { return GetSetting(application, section, key_, standard); }
    /// Whether the text is exactly "True".
    bool isTrue(std::string_view standard = {}) const { return text(standard) == "True"; }
    /// The text as a Boolean or a number; one that is none is an error 13.
    bool boolean(std::string_view standard) const { return settingBoolean(text(standard)); }
    int number(int standard) const { return settingNumber(text(std::to_string(standard))); }

    void store(std::string_view value) const { SaveSetting(application, section, key_, value); }

private:
    static constexpr std::string_view section = "User";

    std::string_view key_;
};

/// Values under keys that the user or a count makes, in the order in which the keys came to be.
class UserList {
public:
    constexpr explicit UserList(std::string_view section) : section_(section) {}

    /// Nothing when the list is empty.
    std::optional<std::vector<Setting>> all() const { return GetAllSettings(application, section_); }
    /// "" when there is none.
    std::string value(std::string_view key) const { return GetSetting(application, section_, key); }
    void store(std::string_view key, std::string_view value) const { SaveSetting(application, section_, key, value); }
    /// Only one that is there does not depend on what stands for a missing one.
    bool contains(std::string_view key) const {
        return GetSetting(application, section_, key, "0") == GetSetting(application, section_, key, "1");
    }
    /// Nothing happens for a key that is not there: of two rows with one label the second to go has none any more.
    void remove(std::string_view key) const {
        if (contains(key)) DeleteSetting(application, section_, key);
    }

private:
    std::string_view section_;
};

/// All that is kept, each thing once.
namespace user {

inline constexpr UserSetting lowerCaseLinks("LCase");  ///< missing until the user has applied the options once
inline constexpr UserSetting slashesInLinks("Slash");
inline constexpr UserSetting relativeLinks("relPath");
inline constexpr UserSetting newFileAtStart("newFile");
inline constexpr UserSetting quickFile("QuickFile");
inline constexpr UserSetting quickFileFilter("QuickFileLastFilter");
inline constexpr UserSetting documentAssistant("DocumentAssistant");
inline constexpr UserSetting documentAssistantSide("PreviewAlign");
inline constexpr UserSetting mappedAddresses("EnforceVDirs");
inline constexpr UserSetting startDirectory("InitDir");
inline constexpr UserSetting editorBackColor("BGColor");
inline constexpr UserSetting editorForeColor("ForeColor");
inline constexpr UserSetting fileFilter("DFilter");
inline constexpr UserSetting scriptLanguage("ScriptLang");  ///< "JS" or "VBS"
inline constexpr UserSetting authorName("Name");
inline constexpr UserSetting fillsInAuthor("prefillAuthor");
inline constexpr UserSetting fillsInProgram("prefillProgram");

inline constexpr UserList recentFiles("Recent_Files");
inline constexpr UserList searchedTexts("Find_Hist");
inline constexpr UserList strings("UserStrings");
inline constexpr UserList browsers("Browsers");
inline constexpr UserList links("Links");              ///< whole link tags by their labels
inline constexpr UserList formActions("formActions");  ///< where forms were sent, the newest first

}  // namespace user

}  // namespace kelvor
