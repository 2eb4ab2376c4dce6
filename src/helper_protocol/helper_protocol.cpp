// SPDX-License-Identifier: MIT
#include "helper_protocol.h"

namespace HelperProtocol {

bool isTooLarge(std::string_view text) {
    return text.size() > maxTextBytes;
}

std::string dismissedMessage() {
    // The same cancel marker that a dismissed macOS dialog carries, so that the apply flow
    // treats both alike.
    return "The administrator prompt was dismissed. (" + std::string(cancelMarker) + ")";
}

} // namespace HelperProtocol
