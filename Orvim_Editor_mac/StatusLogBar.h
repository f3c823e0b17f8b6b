#pragma once

#include <QWidget>

class QComboBox;
class QProgressBar;

namespace orvim {

class ElidedLabel;
class IconLabel;
class MIDIOutManager;
class OncePerTurn;

/// The bar beneath the pages: the choice of the output, the last status and the progress of a long transfer.
/// However many sends one gesture makes, it refreshes once a turn of the event loop.
class StatusLogBar : public QWidget
{
    Q_OBJECT

public:
    explicit StatusLogBar(MIDIOutManager& manager, QWidget* parent = nullptr);

private:
    void makeWidgets();
    void connectManager();
    void reloadDestinations();
    void choose(int index);
    void showDestinations();
    void showSelection();
    void showStatus();
    void showProgress();
    void changeEvent(QEvent* event) override;

    MIDIOutManager& m_manager;
    QComboBox* m_destinationPicker = nullptr;
    IconLabel* m_statusIcon = nullptr;
    ElidedLabel* m_statusText = nullptr;
    QProgressBar* m_progressBar = nullptr;
    OncePerTurn* m_statusRefresh = nullptr;
};

} // namespace orvim
