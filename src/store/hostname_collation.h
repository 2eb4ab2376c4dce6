// SPDX-License-Identifier: MIT
#pragma once

#include <QCollator>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// Orders hostnames the way the user's locale does, ignoring case, fast enough to keep 200,000
// entries sorted.
//
// Hostnames only use 65 ASCII characters. When the locale's collator orders text over them one
// character at a time (no contractions such as the Czech "ch"), each character gets one weight
// byte and a name's key is its weight string, compared with memcmp. That is checked against the
// collator itself on every pair of characters; a locale that fails the check is served by the
// collator directly, correct but slower.
class HostnameCollation {
public:
    explicit HostnameCollation(const QLocale& locale = QLocale());

    // Negative, zero or positive as `a` sorts before, with or after `b`.
    int compare(std::string_view a, std::string_view b) const;
    // A key whose byte order is compare()'s order; empty when the fast path is off.
    std::string key(std::string_view hostname) const;
    // The same key, appended to `out`.
    void appendKey(std::string& out, std::string_view hostname) const;
    bool hasFastKeys() const { return fast_; }

private:
    QCollator collator_;
    std::array<std::uint8_t, 128> weight_{}; // 0 for characters outside the alphabet
    bool fast_ = false;
};
