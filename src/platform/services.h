// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dates.h"
#include "platform/picture.h"

namespace kelvor {

class Control;
class EditControl;
class Form;
class MenuItem;

enum class MousePointer { standard, hourglass };

/// The screen: sound, pointer, fonts, pictures, waiting events.
class Screen {
public:
    virtual ~Screen() = default;
    virtual void beep() = 0;
    virtual void setMousePointer(MousePointer pointer) = 0;
    /// Font families, sorted, each once.
    virtual std::vector<std::string> fonts() = 0;
    /// Whether pictures can be loaded of files with that suffix, in lower case: "png".
    virtual bool showsPictures(std::string_view suffix) = 0;
    /// The picture in a file. Throws Error 481 for a file that holds none, and for one that cannot be read what
    /// readFile throws.
    virtual std::shared_ptr<const Picture> loadPicture(const std::string& path) = 0;
    /// Lets waiting events run, at once and unconditionally.
    virtual void processEvents() = 0;
    /// Sets the one procedure that is called whenever no event waits, and again when it says that there is more to do.
    /// It lets no events run.
    virtual void setIdleWork(std::function<bool()> work) = 0;
};

/// The desktop's shell. Nothing here passes through a command interpreter.
class Shell {
public:
    virtual ~Shell() = default;
    /// Opens a file or an address with the program that the desktop has for it.
    /// @return false when the desktop has none
    virtual bool open(const std::string& target) = 0;
    /// Starts a program and does not wait for it. The first word is a path, or a name looked up in PATH.
    /// Throws Error 53 when there is no such program, 75 when it may not be run.
    virtual void start(const std::vector<std::string>& words, const std::string& workingDirectory) = 0;
};

/// The calendar, in the language and the zone of the environment.
class Clock {
public:
    virtual ~Clock() = default;
    /// The local time.
    virtual DateTime now() = 0;
    /// A day in the locale's short and long form.
    virtual std::string shortDate(const Date& day) = 0;
    virtual std::string longDate(const Date& day) = 0;
    /// "05-Mar-26", with the locale's name of the month.
    virtual std::string mediumDate(const Date& day) = 0;
    /// The time of the day in the locale's usual form.
    virtual std::string time(const DateTime& moment) = 0;
    /// The locale's full names of a day's month and of its weekday.
    virtual std::string monthName(const Date& day) = 0;
    virtual std::string dayName(const Date& day) = 0;
};

/// The clipboard's plain text, UTF-8.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual std::string text() = 0;
    virtual void setText(const std::string& text) = 0;
};

/// Shows pages of the help file.
class HelpViewer {
public:
    virtual ~HelpViewer() = default;
    /// @param address  the help file, or the help file, "::/" and a page's name
    virtual void show(const std::string& address) = 0;
};

/// What the program runs with.
class Libraries {
public:
    virtual ~Libraries() = default;
    /// The libraries in use, each a name and a version.
    virtual std::vector<std::string> inUse() = 0;
};

/// The windows behind the forms.
class Windows {
public:
    virtual ~Windows() = default;
    /// Makes the hidden window of a form that is being loaded and binds its controls.
    virtual void create(Form& form) = 0;
    /// Takes the window away, which may still be handling an event.
    virtual void destroy(Form& form) = 0;
    /// Shows the form and returns when it is hidden or unloaded.
    virtual void showModal(Form& form) = 0;
    /// @param owned  whether it floats above the frame
    virtual void showModeless(Form& form, bool owned) = 0;
    virtual void hide(Form& form) = 0;
    /// Whether a dialog or a modal form stands above the form, whose commands may still be on their way below it.
    virtual bool isBlocked(const Form& form) const = 0;
    /// Opens the rows under `menu` as a popup and returns when it closes.
    /// @param below  the control of its form below which it opens; at the pointer without one
    virtual void popupMenu(MenuItem& menu, const Control* below = nullptr) = 0;
    virtual std::unique_ptr<EditControl> createEditControl(Form& form, const std::string& name) = 0;
};

}  // namespace kelvor
