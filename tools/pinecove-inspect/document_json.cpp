// SPDX-License-Identifier: MIT
#include "document_json.h"

#include <nlohmann/json.hpp>

namespace pinecove::inspect {

namespace {

using Json = nlohmann::ordered_json; // keeps the documented key order

Json entryJson(const HostEntry& entry) {
    Json json;
    const auto comment = entry.comment();
    json["ip"] = entry.ip();
    json["hostnames"] = entry.hostnames().toVector();
    json["comment"] = comment ? Json(*comment) : Json(nullptr);
    json["enabled"] = entry.isEnabled();
    return json;
}

std::string dump(const Json& json) {
    // Texts were checked to be UTF-8 before they got here, so strict mode cannot throw.
    return json.dump(-1, ' ', false, Json::error_handler_t::strict);
}

} // namespace

std::string documentJson(const HostsDocument& document) {
    Json lines = Json::array();
    for (const Line& line : document.lines) {
        if (line.isRaw()) {
            lines.push_back({{"raw", std::string(line.rawText())}});
        } else if (const HostEntry* entry = document.entries.find(line.entryId())) {
            lines.push_back({{"entry", entryJson(*entry)}});
        }
    }
    Json json;
    json["lines"] = std::move(lines);
    json["serialized"] = serialized(document);
    return dump(json);
}

std::string inputJson(const std::optional<ParsedInput>& input) {
    if (!input)
        return "null";
    Json json;
    json["ip"] = input->ip;
    json["hosts"] = input->hosts;
    return dump(json);
}

} // namespace pinecove::inspect
