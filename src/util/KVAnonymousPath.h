#pragma once

#include <QString>

/// The login name of whoever runs the program; empty where the system knows none.
QString KVUserName();

/// `path` with every folder that is called like the user shown as "*USER*", so that logs and reports carry no
/// account name.
QString KVAnonymousPath(const QString &path, const QString &userName = KVUserName());
