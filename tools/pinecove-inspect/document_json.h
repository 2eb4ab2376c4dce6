// SPDX-License-Identifier: MIT
#pragma once

#include "hosts_document.h"
#include "hosts_parser.h"

#include <string>

namespace pinecove::inspect {

// {"lines":[{"raw":…}|{"entry":{"ip","hostnames","comment","enabled"}}…],"serialized":…}
std::string documentJson(const HostsDocument& document);
// {"ip":…,"hosts":[…]} or null
std::string inputJson(const std::optional<ParsedInput>& input);

} // namespace pinecove::inspect
