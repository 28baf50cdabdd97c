#pragma once

#include "presets/settings/KVOptionRoot.h"

#include <QWidget>

class QHBoxLayout;
class QVBoxLayout;

/// The control of one option. It reads the option once, when it is made, and writes every change at once. A
/// row does not follow later changes of the preset. The label stands beside it, except for check boxes, which
/// carry their own.
class KVOptionRow : public QWidget {
    Q_OBJECT

  public:
    explicit KVOptionRow(std::shared_ptr<KVOptionRoot> option, QWidget *parent = nullptr);

    /// Text for a label beside the control; empty where the control says it itself.
    QString labelText() const;

  private:
    void _addNumber(QHBoxLayout &line);
    void _addChoice(QHBoxLayout &line);
    void _addToggle(QVBoxLayout &rows, QHBoxLayout &line);
    void _showDetails();

    std::shared_ptr<KVOptionRoot> _option;
    QWidget *_details = nullptr; ///< What a size or a percentage shows while its check box is on.
};
