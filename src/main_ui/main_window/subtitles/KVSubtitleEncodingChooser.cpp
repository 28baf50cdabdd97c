#include "main_ui/main_window/subtitles/KVSubtitleEncodingChooser.h"

#include "controllers/KVTextEncodings.h"
#include "kvcore/KVLocalizationCenter.h"
#include "main_ui/main_window/KVLook.h"
#include "platform/KVFileManager.h"
#include "presets/video/base/KVSubtitlesFile.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Subtitles are small; whatever is larger shows its beginning.
constexpr qint64 mostBytesRead = qint64{4} * 1024 * 1024;

} // namespace

KVSubtitleEncodingChooser::KVSubtitleEncodingChooser(const QUrl &subtitles, const QString &encoding,
                                                     QWidget *parent)
    : QDialog(parent)
    , _messageTextField(new QLabel)
    , _encodingPopUpButton(new QComboBox)
    , _previewTextView(new QPlainTextEdit)
    , _buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
    KVLook::setButton(*_buttons, QDialogButtonBox::Ok, "OK");
    KVLook::setButton(*_buttons, QDialogButtonBox::Cancel, "Cancel");
    if (QFile file(subtitles.toLocalFile()); file.open(QIODevice::ReadOnly)) _text = file.read(mostBytesRead);

    setWindowTitle(KVLocalizationCenter::localized("Subtitle Encoding"));
    _messageTextField->setText(KVLocalizationCenter::localized(
        "Choose the text encoding of '%@' so that the text below reads correctly.",
        {KVFileManager::lastPathComponent(subtitles)}));
    _messageTextField->setWordWrap(true);
    _messageTextField->setBuddy(_encodingPopUpButton);
    _encodingPopUpButton->setAccessibleName(KVLocalizationCenter::localized("Text encoding"));
    _previewTextView->setReadOnly(true);
    _previewTextView->setTabChangesFocus(true);
    _previewTextView->setAccessibleName(KVLocalizationCenter::localized("Preview"));

    auto *layout = new QVBoxLayout(this);
    auto *legend = new QLabel(KVLocalizationCenter::localized("\u2605 likely for this file"));
    legend->setFont(KVLook::smaller(legend->font()));
    layout->addWidget(_messageTextField);
    layout->addWidget(_encodingPopUpButton);
    layout->addWidget(legend);
    layout->addWidget(_previewTextView, 1);
    layout->addWidget(_buttons);
    resize(520, 420);
    connect(_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    _loadEncodingsPopUpMenu(encoding);
    connect(_encodingPopUpButton, &QComboBox::currentIndexChanged, this, [this] { _encodingChanged(); });
    _encodingChanged();
}

std::optional<QString> KVSubtitleEncodingChooser::chooseEncoding() {
    if (exec() != QDialog::Accepted || _encodingPopUpButton->currentIndex() < 0) return std::nullopt;
    return _encodingPopUpButton->currentData().toString();
}

void KVSubtitleEncodingChooser::_loadEncodingsPopUpMenu(const QString &selected) {
    const QList<KVTextEncoding> encodings = KVTextEncodingsThatDecode(_text);
    for (const KVTextEncoding &encoding : encodings) {
        _encodingPopUpButton->addItem(encoding.isLikely() ? encoding.localizedName + "  \u2605"
                                                          : encoding.localizedName,
                                      encoding.name);
        if (encoding.isLikely())
            _encodingPopUpButton->setItemData(_encodingPopUpButton->count() - 1,
                                              KVLocalizationCenter::localized("Likely for this file"),
                                              Qt::ToolTipRole);
    }
    const auto isSelected = [&](const KVTextEncoding &encoding) {
        return encoding.name.compare(selected, Qt::CaseInsensitive) == 0;
    };
    auto shown = std::ranges::find_if(encodings, isSelected);
    // The one that the file has had so far does not fit: the likeliest is a better start than the first.
    if (shown == encodings.end())
        shown = std::ranges::max_element(encodings, {}, &KVTextEncoding::likelihood);
    if (shown != encodings.end()) _encodingPopUpButton->setCurrentIndex(int(shown - encodings.begin()));
    // A file that can be read under no encoding leaves nothing but the cancel.
    _buttons->button(QDialogButtonBox::Ok)->setEnabled(!encodings.isEmpty());
}

void KVSubtitleEncodingChooser::_encodingChanged() {
    const QString encoding = _encodingPopUpButton->currentData().toString();
    _previewTextView->setPlainText(KVSubtitlesFile::decoded(_text, encoding).value_or(QString()));
}
