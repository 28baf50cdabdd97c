#pragma once

class QWidget;

/// The release notes.
namespace KVWhatsNewWindowController {
/// Shows them over `parent` and blocks until they are closed.
void runModal(QWidget *parent);
} // namespace KVWhatsNewWindowController
