// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>

// `diff -u` of the hosts file before and after, labelled "/etc/hosts" and "/etc/hosts (new)";
// empty when the two are equal. diffutils is essential on Debian, so the diff is its own.
QString unifiedDiff(const std::string& before, const std::string& after);
