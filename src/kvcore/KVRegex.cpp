#include "kvcore/KVRegex.h"

#include "kvcore/KVFatalError.h"

KVRegex::KVRegex(const QString &pattern, KVRegexOptions options)
    : _expression(pattern, options == KVRegexOptions::caseInsensitive
                               ? QRegularExpression::CaseInsensitiveOption
                               : QRegularExpression::NoPatternOption) {
    if (!_expression.isValid())
        KVFatalError(QStringLiteral("Bad pattern \"%1\": %2").arg(pattern, _expression.errorString()));
}

bool KVRegex::matches(const QString &text) const {
    return firstMatch(text).hasMatch();
}

QRegularExpressionMatch KVRegex::firstMatch(const QString &text) const {
    return _expression.match(text);
}
