#include "controllers/KVQueueTableViewController.h"
#include "core/KVUndoStack.h"
#include "support/KVTestCase.h"
#include "util/KVPreferenceKeys.h"
#include "video_info/media_file/KVDVDFile.h"
#include "video_info/media_file/KVPictureFile.h"
#include "video_info/media_file/KVVideoFile.h"

namespace {

/// Writes down what the controller tells, and checks that the rows add up.
class Table : public KVQueueTableView {
  public:
    QStringList events;
    int rows = 0;

    void insertTableRows(int first, int count) override {
        rows += count;
        events += QStringLiteral("insert %1+%2").arg(first).arg(count);
    }
    void removeTableRows(int first, int count) override {
        rows -= count;
        events += QStringLiteral("remove %1+%2").arg(first).arg(count);
    }
    void reorderTableRows(int first, int count) override {
        events += QStringLiteral("reorder %1+%2").arg(first).arg(count);
    }
    void reloadData() override { events += "reload"; }
    void reloadRow(int row) override { events += QStringLiteral("reload %1").arg(row); }
    void animateFinishedConversion(int row) override { events += QStringLiteral("finish %1").arg(row); }
    void showDropZone(bool isAwaitingFiles) override { showsDropZone = isAwaitingFiles; }

    bool showsDropZone = false;
};

using enum KVDropOperation;

} // namespace

class KVQueueTableViewControllerTest : public KVTestCase {
  protected:
    void TearDown() override {
        KVUndoStack::shared().clear();
        for (const auto &queue : KVConversionQueue::allQueues())
            queue->setConversions({});
    }

    std::shared_ptr<KVConversion> add(KVMediaFileType type, const QString &name) {
        return KVConversionQueue::queue(type)->createConversion(file(type, name), nullptr, true);
    }

    std::shared_ptr<KVMediaFile> file(KVMediaFileType type, const QString &name) {
        switch (type) {
        case KVMediaFileType::audio:
            return std::make_shared<KVAudioFile>(url(name));
        case KVMediaFileType::video:
            return std::make_shared<KVVideoFile>(url(name));
        case KVMediaFileType::picture:
            return std::make_shared<KVPictureFile>(url(name));
        default:
            return std::make_shared<KVDVDFile>(url(name));
        }
    }

    QStringList namesInQueue(KVMediaFileType type) {
        QStringList names;
        for (const auto &conversion : KVConversionQueue::queue(type)->conversions())
            names += conversion->mediaFiles().first()->url().fileName();
        return names;
    }

    Table table;
    KVQueueTableViewController controller{table};
};

TEST_F(KVQueueTableViewControllerTest, GroupsStandInOrderWithTheirConversionsBelow) {
    const auto second = add(KVMediaFileType::picture, "p.png");
    const auto first = add(KVMediaFileType::video, "a.mov");
    add(KVMediaFileType::video, "b.mov");
    // video group, two videos, picture group, one picture
    EXPECT_EQ(controller.numberOfRows(), 5);
    EXPECT_TRUE(controller.isGroupRow(0));
    EXPECT_EQ(controller.conversion(1), first);
    EXPECT_TRUE(controller.isGroupRow(3));
    EXPECT_EQ(controller.conversion(3), nullptr);
    EXPECT_EQ(controller.conversion(4), second);
    EXPECT_EQ(controller.conversion(5), nullptr);
    EXPECT_EQ(controller.conversion(-1), nullptr);
    EXPECT_EQ(controller.row(second), 4);
    EXPECT_EQ(controller.mediaType(4), KVMediaFileType::picture);
    EXPECT_EQ(controller.heightOfRow(0), 26);
    EXPECT_EQ(controller.heightOfRow(1), 49);
    using Range = KVQueueTableViewController::Range;
    EXPECT_EQ(controller.rangeOfRows(KVMediaFileType::audio), (Range{3, 0}));
    EXPECT_EQ(controller.rangeOfRows(KVMediaFileType::none), (Range{-1, 0}));
    EXPECT_FALSE(controller.canDragRow(0));
    EXPECT_TRUE(controller.canDragRow(4));
}

TEST_F(KVQueueTableViewControllerTest, RowsFollowAdditionsAndRemovals) {
    const auto a = add(KVMediaFileType::audio, "a.wav");
    const auto b = add(KVMediaFileType::audio, "b.wav");
    EXPECT_EQ(table.events, (QStringList{"insert 0+2", "insert 2+1"}));
    EXPECT_FALSE(table.showsDropZone);
    EXPECT_EQ(table.rows, controller.numberOfRows());

    table.events.clear();
    const auto queue = KVConversionQueue::queue(KVMediaFileType::audio);
    queue->cancelConversion(a);
    queue->cancelConversion(b);
    EXPECT_EQ(table.events, (QStringList{"remove 1+1", "remove 0+2"}));
    EXPECT_EQ(table.rows, 0);
    EXPECT_TRUE(runUntil([&] { return table.showsDropZone; }));
}

TEST_F(KVQueueTableViewControllerTest, DropsFollowTheRules) {
    const auto running = add(KVMediaFileType::video, "a.mov"); // row 1
    add(KVMediaFileType::video, "b.mov");                      // row 2
    add(KVMediaFileType::video, "c.mov");                      // row 3
    add(KVMediaFileType::picture, "p.png");                    // row 5
    add(KVMediaFileType::picture, "q.png");                    // row 6
    running->state = KVConversionState::executing;

    struct Row {
        const char *what;
        int dragged;
        int target;
        KVDropOperation operation;
        bool isAllowed;
    };
    const std::vector<Row> rows{
        {"onto nothing", 2, -1, on, false},
        {"above the first group", 2, 0, above, false},
        {"above another group", 2, 4, above, false},
        {"to another type", 2, 5, above, false},
        {"onto itself", 2, 2, on, false},
        {"above itself", 2, 2, above, false},
        {"just below itself", 2, 3, above, false},
        {"above the first", 2, 1, above, true},
        {"up from the end", 3, 2, above, true},
        {"onto a running one", 2, 1, on, false},
        {"onto a waiting one", 2, 3, on, true},
        {"a running one onto a waiting one", 1, 3, on, false},
        {"a picture onto a picture", 6, 5, on, false},
        {"a picture above a picture", 6, 5, above, true},
    };
    for (const Row &row : rows) {
        table.draggedRow = row.dragged;
        EXPECT_EQ(controller.validateDrop(row.target, row.operation), row.isAllowed) << row.what;
    }
}

TEST_F(KVQueueTableViewControllerTest, ReorderingMovesTheRowAndTheConversionAlike) {
    for (const char *name : {"a.wav", "b.wav", "c.wav", "d.wav"})
        add(KVMediaFileType::audio, name);
    table.events.clear();
    table.draggedRow = 1;
    EXPECT_TRUE(controller.acceptDrop(4, above)); // a above d
    EXPECT_EQ(namesInQueue(KVMediaFileType::audio), (QStringList{"b.wav", "c.wav", "a.wav", "d.wav"}));
    EXPECT_EQ(table.events, (QStringList{"reorder 1+4"}));
    EXPECT_EQ(table.draggedRow, -1);

    table.draggedRow = 4;
    EXPECT_TRUE(controller.acceptDrop(1, above)); // d to the top
    EXPECT_EQ(namesInQueue(KVMediaFileType::audio), (QStringList{"d.wav", "b.wav", "c.wav", "a.wav"}));
}

TEST_F(KVQueueTableViewControllerTest, ADragKeepsItsRowWhileOthersComeAndGo) {
    add(KVMediaFileType::audio, "a.wav");
    const auto dragged = add(KVMediaFileType::audio, "b.wav");
    table.draggedRow = 2;
    const auto video = add(KVMediaFileType::video, "v.mov"); // a group and a row above
    EXPECT_EQ(controller.conversion(table.draggedRow), dragged);
    add(KVMediaFileType::audio, "c.wav");
    EXPECT_EQ(controller.conversion(table.draggedRow), dragged);
    KVConversionQueue::queue(KVMediaFileType::video)->cancelConversion(video);
    EXPECT_EQ(controller.conversion(table.draggedRow), dragged);
    EXPECT_TRUE(controller.validateDrop(1, above));

    KVConversionQueue::queue(KVMediaFileType::audio)->cancelConversion(dragged);
    EXPECT_EQ(table.draggedRow, -1);
    EXPECT_FALSE(controller.validateDrop(1, above));
}

TEST_F(KVQueueTableViewControllerTest, MergingGathersTheFilesInOrder) {
    const auto a = add(KVMediaFileType::audio, "a.wav");
    add(KVMediaFileType::audio, "b.wav");
    const auto c = add(KVMediaFileType::audio, "c.wav");
    table.draggedRow = 1;
    EXPECT_TRUE(controller.acceptDrop(3, on)); // a onto c
    EXPECT_EQ(namesInQueue(KVMediaFileType::audio), (QStringList{"b.wav", "c.wav"}));
    ASSERT_EQ(c->mediaFiles().size(), 2);
    EXPECT_EQ(c->mediaFiles().last(), a->mediaFiles().first());
    EXPECT_TRUE(a->isCancelled());
    EXPECT_EQ(table.rows, controller.numberOfRows());
}

TEST_F(KVQueueTableViewControllerTest, AFinishedRowGoesAtOnceWhereTheUserWantsThat) {
    const auto conversion = add(KVMediaFileType::audio, "a.wav");
    auto &center = KVNotificationCenter::defaultCenter();
    center.post(ConversionDidFinish, conversion);
    EXPECT_EQ(table.events.last(), "finish 1");
    EXPECT_EQ(controller.numberOfRows(), 2);

    KVPreferences::shared().setBoolean(true, KVPreferenceKeys::ClearFinishedItemsRightAway);
    const auto warned = add(KVMediaFileType::audio, "b.wav");
    warned->addWarning("Half of it is missing.");
    center.post(ConversionDidFinish, warned);
    EXPECT_EQ(controller.numberOfRows(), 3) << "its warning would go unread";
    KVConversionQueue::queue(KVMediaFileType::audio)->cancelConversion(warned);
    center.post(ConversionDidFinish, conversion);
    EXPECT_EQ(controller.numberOfRows(), 0);
}

TEST_F(KVQueueTableViewControllerTest, ARowGoesBehindTheLastOneOfItsGroup) {
    for (const char *name : {"a.wav", "b.wav", "c.wav"})
        add(KVMediaFileType::audio, name);
    add(KVMediaFileType::picture, "p.png");
    struct Row {
        const char *what;
        int dragged;
        int target;
        bool isAllowed;
    };
    for (const Row &row : {Row{"on the next heading", 1, 4, true}, Row{"the last row itself", 3, 4, false},
                           Row{"behind another group", 1, 6, false}, Row{"between other rows", 1, 3, false},
                           Row{"a picture behind itself", 5, 6, false}}) {
        table.draggedRow = row.dragged;
        EXPECT_EQ(controller.validateDropAtEndOfGroup(row.target), row.isAllowed) << row.what;
    }
    table.draggedRow = 1;
    controller.acceptDrop(4, above);
    EXPECT_EQ(namesInQueue(KVMediaFileType::audio), (QStringList{"b.wav", "c.wav", "a.wav"}));
}

TEST_F(KVQueueTableViewControllerTest, SelectedRowsAreDraggedTogether) {
    for (const char *name : {"a.wav", "b.wav", "c.wav", "d.wav"})
        add(KVMediaFileType::audio, name);
    const auto drag = [&](int dragged, const QList<int> &together, int target, KVDropOperation operation) {
        table.draggedRow = dragged;
        for (const int row : together)
            table.draggedConversions += controller.conversion(row);
        EXPECT_TRUE(controller.validateDrop(target, operation));
        controller.acceptDrop(target, operation);
        EXPECT_TRUE(table.draggedConversions.isEmpty());
        return namesInQueue(KVMediaFileType::audio);
    };
    EXPECT_EQ(drag(4, {2, 4}, 1, above), (QStringList{"b.wav", "d.wav", "a.wav", "c.wav"}));
    EXPECT_EQ(drag(1, {1, 2}, 4, on), (QStringList{"a.wav", "c.wav"}));
    QStringList merged;
    for (const auto &file : controller.conversion(2)->mediaFiles())
        merged += file->url().fileName();
    EXPECT_EQ(merged, (QStringList{"c.wav", "b.wav", "d.wav"}));
}

TEST_F(KVQueueTableViewControllerTest, ADropThatCannotMergeSaysWhy) {
    add(KVMediaFileType::picture, "p.png");
    add(KVMediaFileType::picture, "q.png");
    EXPECT_EQ(controller.reasonAgainstMerge(1), "") << "nothing is dragged";
    table.draggedRow = 2;
    EXPECT_EQ(controller.reasonAgainstMerge(1), "Pictures cannot be merged.");
}
