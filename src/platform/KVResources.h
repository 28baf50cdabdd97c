#pragma once

#include <QString>

#include <optional>

/// The application's resources: "<prefix>/share/kalvora/resources", found relative to the executable in
/// "<prefix>/bin".
namespace KVResources {

/// The path of the resource `name` with the extension `type` (may be empty); nothing where there is no such
/// file. A link whose target is missing counts as present: what it names may be installed later.
std::optional<QString> path(const QString &name, const QString &type = {});

QString directory();

/// A shared library of the program's own that is loaded when it is needed:
/// "<prefix>/lib/kalvora/lib<name>.so".
QString modulePath(const QString &name);

/// A helper program that is started when it is needed: "<prefix>/lib/kalvora/<name>".
QString helperPath(const QString &name);

/// For tests: look for helper programs in this folder instead. Empty restores the default.
void setHelperDirectory(const QString &directory);

/// For tests and for a build tree that is laid out otherwise: look here instead. Empty restores the default.
void setDirectory(const QString &directory);

} // namespace KVResources
