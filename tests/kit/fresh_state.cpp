#include "tests/kit/fresh_state.h"

#include <cstdlib>
#include <utility>

#include "authoring/insert_lists.h"
#include "controls/form.h"
#include "editing/editor_colors.h"
#include "editing/insertion.h"
#include "frame/file_dialogs.h"
#include "frame/tool_forms.h"
#include "support/fields.h"
#include "support/settings.h"

namespace kelvor {

namespace {

void resetShared() {
    closeSettings();
    setLoadErrorSink({});
    setDeliveryTarget({}, nullptr);
    activeFormName = "editWindow";
    formLoadFailed = false;
    colorsChanging = false;
    lastDir.clear();
    editorBackColor = -1;
    editorForeColor = -1;
    fontList.clear();
    userStrings.clear();
}

}  // namespace

ScopedVariable::ScopedVariable(std::string name, const std::string& value) : name_(std::move(name)) {
    if (const char* previous = std::getenv(name_.c_str())) previous_ = previous;
    setenv(name_.c_str(), value.c_str(), 1);
}

ScopedVariable::~ScopedVariable() {
    if (previous_) {
        setenv(name_.c_str(), previous_->c_str(), 1);
    } else {
        unsetenv(name_.c_str());
    }
}

FreshState::FreshState(const std::string& runtimeDirectory) : runtimeDirectory_("XDG_RUNTIME_DIR", runtimeDirectory) {
    resetShared();
}

FreshState::~FreshState() {
    resetShared();
}

}  // namespace kelvor
