#include "base/version.h"

std::string_view Version() {
    return KVARNBO_VERSION;
}
