#include "main_ui/options/KVOptionRow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace {

// Limits further apart than this are of no use on a slider.
constexpr qint64 widestSlider = 100'000;

/// A field for whole numbers that writes on every keystroke; an empty one is 0.
QLineEdit *numberField(const std::shared_ptr<KVOptionRoot> &option) {
    auto *field = new QLineEdit(option->value().toString());
    constexpr qint64 largest = std::numeric_limits<int>::max();
    auto *validator = new QIntValidator(field);
    validator->setTop(int(std::min(option->maxValue(), largest)));
    if (option->minValue() >= 0) validator->setBottom(0); // on the way to a number one types smaller ones
    field->setValidator(validator);
    field->setAccessibleName(option->name);
    field->setMaximumWidth(field->fontMetrics().averageCharWidth() * 12);
    field->setAlignment(Qt::AlignTrailing);
    return field;
}

QLineEdit *detailField(const std::shared_ptr<KVOptionRoot> &option) {
    QLineEdit *field = numberField(option);
    QObject::connect(field, &QLineEdit::textChanged, field,
                     [option](const QString &text) { option->setValue(text); });
    return field;
}

QCheckBox *checkBox(const std::shared_ptr<KVOptionRoot> &option) {
    auto *box = new QCheckBox(option->name);
    box->setChecked(option->value().toBool());
    QObject::connect(box, &QCheckBox::toggled, box, [option](bool isOn) { option->setValue(isOn); });
    return box;
}

} // namespace

KVOptionRow::KVOptionRow(std::shared_ptr<KVOptionRoot> option, QWidget *parent)
    : QWidget(parent)
    , _option(std::move(option)) {
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    auto *line = new QHBoxLayout;
    rows->addLayout(line);
    switch (_option->kind()) {
    case KVOptionKind::number:
        _addNumber(*line);
        break;
    case KVOptionKind::choice:
        _addChoice(*line);
        break;
    case KVOptionKind::toggle:
    case KVOptionKind::size:
    case KVOptionKind::percentage:
        _addToggle(*rows, *line);
        break;
    }
}

QString KVOptionRow::labelText() const {
    const bool hasLabel = _option->kind() == KVOptionKind::number || _option->kind() == KVOptionKind::choice;
    return hasLabel ? _option->name : QString();
}

void KVOptionRow::_addNumber(QHBoxLayout &line) {
    QLineEdit *field = numberField(_option);
    line.addWidget(field);
    setFocusProxy(field);
    if (_option->maxValue() - _option->minValue() > widestSlider) {
        connect(field, &QLineEdit::textChanged, this,
                [this](const QString &text) { _option->setValue(text); });
        line.addStretch();
        return;
    }
    auto *slider = new QSlider(Qt::Horizontal);
    slider->setRange(int(_option->minValue()), int(_option->maxValue()));
    slider->setValue(_option->value().toInt());
    slider->setAccessibleName(_option->name);
    line.insertWidget(0, slider, 1);
    connect(slider, &QSlider::valueChanged, this, [this, field](int value) {
        _option->setValue(value);
        if (field->text().toInt() != value) field->setText(QString::number(value));
    });
    // The slider clamps; while one types the field keeps what one has typed.
    connect(field, &QLineEdit::textEdited, this, [this, slider](const QString &text) {
        const QSignalBlocker blocker(slider);
        slider->setValue(text.toInt());
        _option->setValue(slider->value());
    });
    connect(field, &QLineEdit::editingFinished, this,
            [field, slider] { field->setText(QString::number(slider->value())); });
}

void KVOptionRow::_addChoice(QHBoxLayout &line) {
    auto *popUp = new QComboBox;
    popUp->addItems(_option->allowedValueNames());
    popUp->setAccessibleName(_option->name);
    // A value that is not on offer shows the first entry and stays as it is until one is chosen.
    popUp->setCurrentIndex(
        std::max(0, popUp->findText(_option->value().toString(), Qt::MatchExactly | Qt::MatchCaseSensitive)));
    connect(popUp, &QComboBox::textActivated, this, [this](const QString &name) { _option->setValue(name); });
    line.addWidget(popUp, 1);
    setFocusProxy(popUp);
}

void KVOptionRow::_addToggle(QVBoxLayout &rows, QHBoxLayout &line) {
    QCheckBox *box = checkBox(_option);
    line.addWidget(box);
    setFocusProxy(box);
    if (_option->kind() == KVOptionKind::toggle) return;
    if (_option->kind() == KVOptionKind::percentage) line.addStretch();
    connect(box, &QCheckBox::toggled, this, &KVOptionRow::_showDetails);
    auto *place = new QWidget;
    (new QHBoxLayout(place))->setContentsMargins(0, 0, 0, 0);
    if (_option->kind() == KVOptionKind::size)
        rows.addWidget(place);
    else
        line.addWidget(place);
    _details = place;
    _showDetails();
}

void KVOptionRow::_showDetails() {
    qDeleteAll(_details->findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
    auto *line = static_cast<QHBoxLayout *>(_details->layout());
    while (QLayoutItem *leftOver = line->takeAt(0))
        delete leftOver;
    const KVOptionList options = _option->details();
    for (const auto &option : options) {
        if (option->kind() == KVOptionKind::toggle) {
            line->addWidget(checkBox(option));
            continue;
        }
        if (line->count() > 0) line->addWidget(new QLabel(QStringLiteral("\u00d7")));
        line->addWidget(detailField(option));
    }
    if (!options.empty() && _option->kind() == KVOptionKind::percentage)
        line->addWidget(new QLabel(QStringLiteral("%")));
    line->addStretch();
    _details->setVisible(!options.empty());
}
