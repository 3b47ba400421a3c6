#pragma once

#include "platform/services.h"

namespace kelvor::qt {

class QtClock : public Clock {
public:
    std::string longDate() override;
};

}  // namespace kelvor::qt
