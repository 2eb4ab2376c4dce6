// SPDX-License-Identifier: MIT
#include "operands.h"

#include "host_entry.h"
#include "hosts_parser.h"

using namespace pinecove;

namespace Operands {

namespace {

bool isControl(QChar c) {
    return c.category() == QChar::Other_Control || c.category() == QChar::Other_Format;
}

std::optional<QString> spacingProblem(const QString& operand) {
    if (operand.isEmpty())
        return QStringLiteral("An empty operand (\"\") is neither a hostname nor an address");
    for (const QChar c : operand)
        if (c.isSpace() || isControl(c))
            return QStringLiteral("%1 holds white space or a control character; an operand is "
                                  "one hostname or one address")
                .arg(shown(operand));
    return std::nullopt;
}

bool looksLikeAddress(const QString& operand) {
    if (operand.contains(QLatin1Char(':')))
        return true;
    for (const QChar c : operand)
        if (!c.isDigit() && c != QLatin1Char('.'))
            return false;
    return true;
}

} // namespace

QString shown(const QString& operand) {
    QString text = QStringLiteral("\"");
    for (const QChar c : operand) {
        if (c == QLatin1Char('\\') || c == QLatin1Char('"'))
            text += QLatin1Char('\\') + c;
        else if (c == QLatin1Char('\t'))
            text += QStringLiteral("\\t");
        else if (c == QLatin1Char('\n'))
            text += QStringLiteral("\\n");
        else if (c == QLatin1Char('\r'))
            text += QStringLiteral("\\r");
        else if (c.unicode() < 0x80 && isControl(c))
            text +=
                QStringLiteral("\\x%1").arg(static_cast<int>(c.unicode()), 2, 16, QLatin1Char('0'));
        else if (isControl(c) || c.category() == QChar::Separator_Line ||
                 c.category() == QChar::Separator_Paragraph)
            text +=
                QStringLiteral("\\u%1").arg(static_cast<int>(c.unicode()), 4, 16, QLatin1Char('0'));
        else
            text += c;
    }
    return text + QLatin1Char('"');
}

bool isAddress(const QString& operand) {
    const std::string bytes = operand.toStdString();
    return HostsParser::isValidIP(bytes) && bytes.find('#') == std::string::npos &&
           !spacingProblem(operand);
}

std::optional<QString> addressProblem(const QString& operand) {
    if (auto problem = spacingProblem(operand))
        return problem;
    if (!isAddress(operand))
        return QStringLiteral("%1 is not a valid IPv4 or IPv6 address").arg(shown(operand));
    return std::nullopt;
}

std::optional<QString> nameProblem(const QString& operand) {
    if (auto problem = spacingProblem(operand))
        return problem;
    if (isAddress(operand))
        return QStringLiteral("%1 is an address where a hostname is expected").arg(shown(operand));
    if (looksLikeAddress(operand))
        return QStringLiteral("%1 is not a valid IPv4 or IPv6 address").arg(shown(operand));
    if (!HostsParser::isValidHostname(operand.toStdString()))
        return QStringLiteral("%1 is not a valid hostname (letters, digits, hyphens, dots and "
                              "underscores, at most 253, not starting with a hyphen or a dot)")
            .arg(shown(operand));
    return std::nullopt;
}

bool isSystemName(const QString& operand) {
    return HostEntry::systemHostnames().contains(operand.toLower().toStdString());
}

} // namespace Operands
