// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/handler.h"
#include "controls/mouse_press.h"

namespace kelvor {

class EditControl;

/// A window and its controls. A form is loaded once, shown any number of times and unloaded once, before it ends.
class Form {
public:
    enum class Kind { frame, child, tool };

    /// @param name  also the name of its layout file
    Form(std::string name, std::string caption, Kind kind = Kind::tool);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& name() const { return name_; }
    Kind kind() const { return kind_; }

    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& caption);

    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    /// Takes the keyboard from the program's other windows; a child's window is its frame's.
    void activate() { tell(Aspect::focus); }

    /// The controls in the order of their creation.
    const std::vector<Control*>& controls() const { return controls_; }

    bool isLoaded() const { return loaded_; }

    /// Makes the window and runs the load procedure; nothing when it is loaded already. An error of the
    /// load procedure goes to the load-error sink and leaves the form loaded; one in making the window is thrown
    /// and leaves it as it was.
    void load();

    /// Asks (queryUnload) and, when nobody refuses, runs the unload procedure and takes the window away.
    /// The frame asks all its child windows before the first one goes; tool forms go with it unasked. A form that is
    /// blocked (Windows::isBlocked) stays, whoever wants it to close.
    /// @return false when it was refused; true also when the form is not loaded
    bool unload();

    /// The load procedure.
    Event<>::Handler onLoad;
    /// Comes to the front after another form; not after a dialog of its own.
    Event<> activated;
    /// The frame's: the keyboard has come to a window of the program, from another of them or from another program.
    Event<> keyboardCame;
    Event<> resized;
    /// A handler sets the flag to keep the form open.
    Event<bool&> queryUnload;
    /// The frame's: all its child windows have agreed to go; a handler sets the flag to keep everything open.
    Event<bool&> childrenAgreed;
    Event<> unloaded;
    Event<MousePress> mouseDown;

    /// What the window follows: caption, enabled, focus.
    void follow(Control::Follower follower) { follower_ = std::move(follower); }

protected:
    /// Makes an edit control of the platform's kind and owns it; for member initialisers.
    EditControl& addEditControl(const std::string& name, const Handler<>& changed = {});

private:
    friend class Control;

    bool askUnload();
    void finishUnload();
    void tell(Aspect aspect) const {
        if (follower_) follower_(aspect);
    }

    std::string name_;
    std::string caption_;
    Kind kind_;
    bool enabled_ = true;
    bool loaded_ = false;
    std::vector<Control*> controls_;
    std::vector<std::unique_ptr<EditControl>> editControls_;
    Control::Follower follower_;
};

/// Keeps the user from a form while it lives; afterwards the form is as it was.
class DisabledForm {
public:
    explicit DisabledForm(Form& form) : form_(form), wasEnabled_(form.enabled()) { form_.setEnabled(false); }
    ~DisabledForm() { form_.setEnabled(wasEnabled_); }
    DisabledForm(const DisabledForm&) = delete;
    DisabledForm& operator=(const DisabledForm&) = delete;

private:
    Form& form_;
    bool wasEnabled_;
};

/// The loaded forms in the order of loading; the frame is the first.
const std::vector<Form*>& loadedForms();

/// Is told a load procedure's failure; set once at start.
void setLoadErrorSink(std::function<void(Form&, const Error&)> sink);

/// The one instance of a tool form: made on first use, dropped when it unloads.
template <typename T>
class FormInstance {
public:
    /// The instance, made now when there is none.
    T& get() {
        if (!instance_) {
            instance_ = std::make_shared<T>();
            instance_->unloaded.connect([this] { retire(std::exchange(instance_, nullptr)); });
        }
        return *instance_;
    }

private:
    std::shared_ptr<T> instance_;
};

}  // namespace kelvor
