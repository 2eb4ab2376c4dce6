// SPDX-License-Identifier: MIT
#include "hostname_collation.h"

#include <QStringList>
#include <algorithm>

namespace {

constexpr std::string_view alphabet =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._";

int sign(int value) {
    return (value > 0) - (value < 0);
}

} // namespace

HostnameCollation::HostnameCollation(const QLocale& locale)
    : collator_(locale) {
    collator_.setCaseSensitivity(Qt::CaseInsensitive);

    // Rank the single characters by the collator; equal ones (a and A) share a weight.
    std::string chars(alphabet);
    std::stable_sort(chars.begin(), chars.end(), [this](char a, char b) {
        return collator_.compare(QString(QChar(a)), QString(QChar(b))) < 0;
    });
    std::uint8_t weight = 1;
    for (std::size_t i = 0; i < chars.size(); ++i) {
        if (i > 0 && collator_.compare(QString(QChar(chars[i - 1])), QString(QChar(chars[i]))) != 0)
            ++weight;
        weight_[static_cast<unsigned char>(chars[i])] = weight;
    }

    // Weights are only trustworthy if they reproduce the collator on every pair of characters,
    // against every other pair and against single characters (prefixes).
    QStringList pairs;
    std::vector<std::string> raw;
    for (const char a : alphabet)
        for (const char b : alphabet)
            raw.push_back(std::string{a, b});
    for (const char a : alphabet)
        raw.push_back(std::string{a});
    for (const std::string& text : raw)
        pairs << QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    std::vector<qsizetype> byCollator(static_cast<std::size_t>(pairs.size()));
    for (std::size_t i = 0; i < byCollator.size(); ++i)
        byCollator[i] = static_cast<qsizetype>(i);
    std::stable_sort(byCollator.begin(), byCollator.end(), [&](qsizetype a, qsizetype b) {
        return collator_.compare(pairs[a], pairs[b]) < 0;
    });
    fast_ = true;
    for (std::size_t i = 1; i < byCollator.size() && fast_; ++i) {
        const std::string& before = raw[static_cast<std::size_t>(byCollator[i - 1])];
        const std::string& after = raw[static_cast<std::size_t>(byCollator[i])];
        const int expected =
            sign(collator_.compare(pairs[byCollator[i - 1]], pairs[byCollator[i]]));
        fast_ = sign(key(before).compare(key(after))) == expected;
    }
}

std::string HostnameCollation::key(std::string_view hostname) const {
    std::string key;
    appendKey(key, hostname);
    return key;
}

void HostnameCollation::appendKey(std::string& out, std::string_view hostname) const {
    for (const char ch : hostname) {
        const auto c = static_cast<unsigned char>(ch);
        out += static_cast<char>(c < 128 ? weight_[c] : 0);
    }
}

int HostnameCollation::compare(std::string_view a, std::string_view b) const {
    if (fast_)
        return sign(key(a).compare(key(b)));
    return sign(collator_.compare(QString::fromUtf8(a.data(), static_cast<qsizetype>(a.size())),
                                  QString::fromUtf8(b.data(), static_cast<qsizetype>(b.size()))));
}
