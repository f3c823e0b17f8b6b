#include "pages/TransferListActions.h"

#include "MIDIOutManager.h"
#include "pages/DroppedFiles.h"
#include "pages/Report.h"
#include "platform/WholeFile.h"

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

/// The list belongs to one action at a time; a drop that comes meanwhile follows it.
void TransferListActions::whileBusy(const std::function<void()>& action)
{
    if (m_isBusy) return;
    m_isBusy = true;
    const auto end = qScopeGuard([this] { m_isBusy = false; });
    action();
    while (!m_waitingDrops.isEmpty()) {
        const QStringList paths = m_waitingDrops.takeFirst();
        m_isBusy = false;
        registerFiles(paths);
        m_isBusy = true;
    }
}

void TransferListActions::clear()
{
    whileBusy([this] {
        if (itemCount() > 0 && !m_dialogs.askYesNo(QString::fromUtf8(m_words.clearQuestion)))
            return report(m_words.clearCancelled);
        clearItems();
        Q_EMIT listChanged();
        report(m_words.cleared);
    });
}

void TransferListActions::addByPanel()
{
    registerFiles(m_dialogs.openPaths(m_words.fileKind));
}

void TransferListActions::addDropped(const QList<QUrl>& urls)
{
    const QStringList paths = droppedFiles(urls, m_words.extensions);
    if (paths.isEmpty()) return report(m_words.noneFound);
    registerFiles(paths);
}

void TransferListActions::registerFiles(const QStringList& paths)
{
    if (paths.isEmpty()) return renumber();
    if (m_isBusy) return m_waitingDrops.append(paths);
    whileBusy([&] {
        const auto end = qScopeGuard([this] { m_midiOutManager.setProgressFraction(std::nullopt); });
        for (qsizetype i = 0; i < paths.size(); ++i) {
            showProgress(static_cast<std::size_t>(i), static_cast<std::size_t>(paths.size()));
            if (itemCount() < mostItems && !addOrReport(paths[i])) return;
        }
        renumber();
        report(m_words.registered);
    });
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
    whileBusy([&] {
        removeItems({id});
        m_selectedItemIDs.remove(id);
        finishDeletion();
    });
}

void TransferListActions::deleteSelected()
{
    if (m_selectedItemIDs.isEmpty()) return;
    whileBusy([this] {
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
    whileBusy([this] {
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
    whileBusy([this] {
        const auto path = m_dialogs.openPath(FileKind::midi);
        if (!path) return report(m_words.importCancelled);
        std::function<void()> replace;
        try {
            replace = readReplacement(*path);
        } catch (const std::exception&) {
            return report("MIDIファイルを開けません。");
        }
        if (!replace) return report(m_words.nothingToImport);
        if (itemCount() > 0 && !m_dialogs.askYesNo(QString::fromUtf8(m_words.importQuestion)))
            return report(m_words.importCancelled);
        replace();
        Q_EMIT listChanged();
        report(m_words.imported);
    });
}

void TransferListActions::runOnModule(const QUuid& id)
{
    whileBusy([&] {
        const auto end = qScopeGuard([this] { m_midiOutManager.setProgressFraction(std::nullopt); });
        sendToModule(id);
    });
}

} // namespace orvim
