#include "main_ui/main_window/details/KVFailureDetailsPanel.h"

#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"
#include "platform/KVUserQuestions.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int signSide = 32;
constexpr int widthInCharacters = 100;
constexpr int linesOfCommand = 4;
constexpr int linesOfLog = 12;

QString panelText(const char *key) {
    return KVLocalizationCenter::localized(key);
}

/// A paragraph that wraps and can be selected.
QLabel *paragraph(const QString &text) {
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

/// A box of text in letters of one width, with its title above.
QPlainTextEdit *addTextBox(QBoxLayout &layout, const char *title, const QString &text, int lines) {
    auto *box = new QPlainTextEdit(text);
    box->setReadOnly(true);
    box->setTabChangesFocus(true);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(KVLook::smaller(box->font()).pointSizeF());
    box->setFont(font);
    const int frame = 2 * (box->frameWidth() + int(box->document()->documentMargin()));
    box->setMinimumHeight(lines * box->fontMetrics().lineSpacing() + frame);
    box->setAccessibleName(panelText(title));
    auto *label = new QLabel(panelText(title));
    label->setBuddy(box);
    label->setFont(KVLook::smaller(label->font()));
    layout.addSpacing(4);
    layout.addWidget(label);
    return box;
}

} // namespace

KVFailureDetailsPanel::KVFailureDetailsPanel(KVFailureDetails details, QWidget *parent)
    : QDialog(parent)
    , _details(std::move(details))
    , _sign(new QLabel)
    , _heading(new QLabel) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(KVLocalizationCenter::localized("Details of %@", {_details.name}));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->setSpacing(8);
    _addHeading(*layout);
    _addTexts(*layout);
    _addButtons(*layout);
    _updateColors();
    resize(fontMetrics().averageCharWidth() * widthInCharacters, sizeHint().height());
}

void KVFailureDetailsPanel::_addHeading(QBoxLayout &layout) {
    auto *row = new QHBoxLayout;
    row->setSpacing(14);
    row->addWidget(_sign, 0, Qt::AlignTop);
    auto *column = new QVBoxLayout;
    column->setSpacing(8);
    row->addLayout(column, 1);
    layout.addLayout(row);

    _heading->setText(_details.name);
    _heading->setTextFormat(Qt::PlainText);
    _heading->setWordWrap(true);
    QFont font = _heading->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.1);
    _heading->setFont(font);
    column->addWidget(_heading);
    if (!_details.cause.isEmpty()) column->addWidget(paragraph(_details.cause));
    if (!_details.remedy.isEmpty()) column->addWidget(paragraph(_details.remedy));
    if (!_details.warnings.isEmpty()) {
        const bool isList = _details.warnings.size() > 1;
        const QString mark = isList ? QStringLiteral("\u2022 ") : QString();
        column->addWidget(paragraph(mark + _details.warnings.join('\n' + mark)));
    }
    if (_details.hasFailed) _addRetries(*column);
}

void KVFailureDetailsPanel::_addRetries(QBoxLayout &layout) {
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 4, 0, 4);
    QPushButton *best = nullptr;
    if (_details.retry == KVFailureRetry::withoutSubtitles)
        best = _retryButton("Try Again Without Subtitles", _details.retry);
    else if (_details.retry == KVFailureRetry::inAnotherFolder)
        best = _retryButton("Try Again in Another Folder...", _details.retry);
    QPushButton *again = _retryButton("Try Again", KVFailureRetry::again);
    if (best) row->addWidget(best);
    row->addWidget(again);
    row->addStretch();
    (best ? best : again)->setDefault(_details.retry != KVFailureRetry::none);
    layout.addLayout(row);
}

QPushButton *KVFailureDetailsPanel::_retryButton(const char *title, KVFailureRetry retry) {
    auto *button = new QPushButton(panelText(title));
    connect(button, &QPushButton::clicked, this, [this, retry] { Q_EMIT retryRequested(retry); });
    return button;
}

void KVFailureDetailsPanel::_addTexts(QBoxLayout &layout) {
    if (!_details.command.isEmpty()) {
        auto *command = addTextBox(layout, "Command:", _details.command, linesOfCommand);
        command->setFixedHeight(command->minimumHeight()); // the room is the log's
        layout.addWidget(command);
    }
    if (_details.log.isEmpty()) return layout.addStretch();
    auto *log = addTextBox(layout, "Last lines of the log:", _details.log, linesOfLog);
    layout.addWidget(log, 1);
    log->verticalScrollBar()->setValue(log->verticalScrollBar()->maximum());
}

void KVFailureDetailsPanel::_addButtons(QBoxLayout &layout) {
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    KVLook::setButton(*buttons, QDialogButtonBox::Close, "Close");
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto *copy = new QPushButton(panelText("Copy"));
    auto *save = new QPushButton(panelText("Save..."));
    connect(copy, &QPushButton::clicked, this, &KVFailureDetailsPanel::_copy);
    connect(save, &QPushButton::clicked, this, &KVFailureDetailsPanel::_save);
    auto *row = new QHBoxLayout;
    row->addWidget(copy);
    row->addWidget(save);
    row->addStretch();
    row->addWidget(buttons);
    layout.addSpacing(4);
    layout.addLayout(row);
}

void KVFailureDetailsPanel::_copy() const {
    QGuiApplication::clipboard()->setText(_details.text());
}

void KVFailureDetailsPanel::_save() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    // The save panel asks before it gives the name of a file that exists.
    const auto url =
        KVUserQuestion::runModalOnMainThread(KVSavePanel{.directory = QUrl::fromLocalFile(folder),
                                                         .proposedName = _details.proposedFileName(),
                                                         .allowedExtensions = {QStringLiteral("txt")}});
    if (!url) return;
    if (const auto saved = _details.save(*url); !saved)
        KVUserQuestion::runModalOnMainThread(
            KVAlert{.messageText = panelText("The details could not be saved."),
                    .informativeText = saved.error().reason,
                    .buttons = {panelText("OK")}});
}

void KVFailureDetailsPanel::changeEvent(QEvent *event) {
    if (event->type() == QEvent::PaletteChange) _updateColors();
    QDialog::changeEvent(event);
}

void KVFailureDetailsPanel::_updateColors() {
    const QColor color = _details.hasFailed ? KVLook::failure(palette()) : KVLook::warning(palette());
    _sign->setPixmap(KVLook::symbol(_details.hasFailed ? "failed" : "warning", QSize(signSide, signSide),
                                    color, devicePixelRatioF()));
}
