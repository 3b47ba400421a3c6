#include "core/tool_forms.h"

#include <algorithm>

#include "platform/form.h"

namespace kelvor {

namespace {

constexpr const char* fixedForms[] = {"find",       "findReplace", "tags", "specialCharacterInsertion",
                                      "frmScripts", "linkman"};

}  // namespace

void unloadFixedForms() {
    for (const char* name : fixedForms) {
        const auto& forms = loadedForms();
        const auto found = std::find_if(forms.begin(), forms.end(), [&](Form* form) { return form->name() == name; });
        if (found != forms.end()) (*found)->unload();
    }
}

}  // namespace kelvor
