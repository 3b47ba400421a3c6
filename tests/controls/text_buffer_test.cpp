// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/text_buffer.h"

#include "tests/kit/edit_control_contract.h"

namespace kelvor {

INSTANTIATE_TEST_SUITE_P(TextBuffer, EditControlContract,
                         testing::Values(EditControlKind{"TextBuffer", makeControl<TextBuffer>}));

}  // namespace kelvor
