#include "pages/TransferListActions.h"

#include "MIDIOutManager.h"
#include "pages/DroppedFiles.h"
#include "pages/Report.h"
#include "platform/BackgroundWork.h"
#include "platform/WholeFile.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <algorithm>

namespace orvim {

TransferListActions::TransferListActions(const TransferListWords& words, MIDIOutManager& midiOutManager,
                                         Dialogs& dialogs)
    : m_words(words), m_midiOutManager(midiOutManager), m_dialogs(dialogs)
{
}

void TransferListActions::report(const char* text)
{
    orvim::report(m_midiOutManager, QString::fromUtf8(text));
}

void TransferListActions::showProgress(std::size_t done, std::size_t count)
{
    const double fraction = static_cast<double>(done) / static_cast<double>(count);
    m_midiOutManager.setProgressFraction(std::clamp(fraction, 0.0, 1.0));
}

void TransferListActions::inTurn(std::function<void()> action)
{
    m_waitingActions.push_back(std::move(action));
    // What waits already is followed by a call of runNext.
    if (m_waitingActions.size() == 1) runNext();
}

void TransferListActions::runNext()
{
    if (m_isBusy || m_waitingActions.empty()) return;
    m_isBusy = true;
    const auto end = qScopeGuard([this] {
        m_isBusy = false;
        if (!m_waitingActions.empty())
            QMetaObject::invokeMethod(this, &TransferListActions::runNext, Qt::QueuedConnection);
    });
    const auto action = std::move(m_waitingActions.front());
    m_waitingActions.pop_front();
    action();
}

void TransferListActions::clear()
{
    inTurn([this] {
        if (itemCount() > 0 && !m_dialogs.askYesNo(QString::fromUtf8(m_words.clearQuestion)))
            return report(m_words.clearCancelled);
        clearItems();
        Q_EMIT listChanged();
        report(m_words.cleared);
    });
}

void TransferListActions::addByPanel()
{
    inTurn([this] { addFiles(m_dialogs.openPaths(m_words.fileKind)); });
}

void TransferListActions::addDropped(const QList<QUrl>& urls)
{
    inTurn([this, urls] {
        const QStringList paths = droppedFiles(urls, m_words.extensions);
        if (paths.isEmpty()) return report(m_words.noneFound);
        addFiles(paths);
    });
}

void TransferListActions::registerFiles(const QStringList& paths)
{
    inTurn([this, paths] { addFiles(paths); });
}

void TransferListActions::addFiles(const QStringList& paths)
{
    if (paths.isEmpty()) return renumber();
    const auto end = qScopeGuard([this] { m_midiOutManager.setProgressFraction(std::nullopt); });
    for (qsizetype i = 0; i < paths.size(); ++i) {
        showProgress(static_cast<std::size_t>(i), static_cast<std::size_t>(paths.size()));
        if (itemCount() < mostItems && !addOrReport(paths[i])) return m_waitingActions.clear();
        // What the user did meanwhile: the window may be closed between two files, and the list's own actions follow.
        QCoreApplication::processEvents();
    }
    renumber();
    report(m_words.registered);
}

/// False: the application is to quit.
bool TransferListActions::addOrReport(const QString& path)
{
    try {
        if (!addFile(path)) return false;
        Q_EMIT listChanged();
    } catch (const std::exception&) {
        report(m_words.cannotLoad);
    }
    return true;
}

void TransferListActions::deleteOne(const QUuid& id)
{
    inTurn([this, id] {
        removeItems({id});
        m_selectedItemIDs.remove(id);
        finishDeletion();
    });
}

void TransferListActions::deleteSelected()
{
    inTurn([this] {
        if (m_selectedItemIDs.isEmpty()) return;
        removeItems(m_selectedItemIDs);
        m_selectedItemIDs.clear();
        finishDeletion();
    });
}

void TransferListActions::finishDeletion()
{
    renumber();
    Q_EMIT listChanged();
    report(m_words.deleted);
}

void TransferListActions::exportMIDI()
{
    inTurn([this] {
        const auto path = m_dialogs.savePath(QString::fromUtf8(m_words.exportName), FileKind::midi);
        if (!path) return report(m_words.exportCancelled);
        try {
            const bool isWritten = writeWholeFile(*path, exportedBytes());
            report(isWritten ? m_words.exported : m_words.exportFailed);
        } catch (const std::exception&) {
            report(m_words.exportFailed);
        }
    });
}

void TransferListActions::restoreFromMIDI()
{
    inTurn([this] {
        const auto path = m_dialogs.openPath(FileKind::midi);
        if (!path) return report(m_words.importCancelled);
        restore(*path);
    });
}

void TransferListActions::restore(const QString& path)
{
    std::function<void()> replace;
    try {
        if (!runInBackground([&] { replace = readReplacement(path); })) return m_waitingActions.clear();
    } catch (const std::exception&) {
        return report("MIDIファイルを開けません。");
    }
    if (!replace) return report(m_words.nothingToImport);
    if (itemCount() > 0 && !m_dialogs.askYesNo(QString::fromUtf8(m_words.importQuestion)))
        return report(m_words.importCancelled);
    replace();
    Q_EMIT listChanged();
    report(m_words.imported);
}

void TransferListActions::runOnModule(const QUuid& id)
{
    inTurn([this, id] {
        const auto end = qScopeGuard([this] { m_midiOutManager.setProgressFraction(std::nullopt); });
        sendToModule(id);
    });
}

} // namespace orvim
