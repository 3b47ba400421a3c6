#include "controls/text_buffer.h"

#include "tests/kit/edit_control_contract.h"

namespace kelvor {

INSTANTIATE_TYPED_TEST_SUITE_P(TextBuffer, EditControlContract, TextBuffer);

}  // namespace kelvor
