#include "editing/editor_colors.h"

namespace kelvor {

ColorsChanging::ColorsChanging() {
    colorsChanging = true;
}

ColorsChanging::~ColorsChanging() {
    colorsChanging = false;
}

}  // namespace kelvor
