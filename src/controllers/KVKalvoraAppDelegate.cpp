#include "controllers/KVKalvoraAppDelegate.h"

#include "queues/KVRowEdits.h"

void KVKalvoraAppDelegate::mergeAll() {
    KVRowEdits::shared().mergeAll();
}
