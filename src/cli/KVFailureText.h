#pragma once

#include <QString>

struct KVConversionError;

/// Why a conversion failed, in one short sentence for the user: drawn from all that a tool printed.
QString KVFailureText(const KVConversionError &error);
