#pragma once

#include "platform/Dialogs.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QUrl>
#include <QUuid>

#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

namespace orvim {

class MIDIOutManager;

/// Everything that one page of transfers says to the user, and which files it takes. All texts are UTF-8.
struct TransferListWords {
    FileKind fileKind;
    std::vector<const char*> extensions; ///< of dropped files, in lower case
    const char* addFromMenu;
    const char* addFromToolbar;
    const char* addSymbol;
    const char* restoreFromMenu;
    const char* runOnModule;
    const char* dropHint;
    const char* clearQuestion;
    const char* clearCancelled;
    const char* cleared;
    const char* noneFound;
    const char* cannotLoad;
    const char* registered;
    const char* deleted;
    const char* exportName;
    const char* exportCancelled;
    const char* exported;
    const char* exportFailed;
    const char* importCancelled;
    const char* nothingToImport;
    const char* importQuestion;
    const char* imported;
};

/// What the list shows of an item.
struct TransferRow {
    QUuid id;
    int number = 0; ///< the row's place in the list
    QImage preview; ///< null where the page has none
    QString filePath;
    QString detail; ///< empty where the page has none
};

/// A choice of the page's settings menu.
struct TransferOption {
    const char* title;
    bool* value;
};

/// The list of a page that sends files to the module, and its actions, without a window. The picture and the sound page
/// differ in their items, words and messages.
///
/// While files are loaded or messages leave the window stays alive. An action that comes meanwhile follows: the list
/// belongs to one action at a time.
class TransferListActions : public QObject
{
    Q_OBJECT

public:
    static constexpr int mostItems = 32;

    TransferListActions(const TransferListWords& words, MIDIOutManager& midiOutManager, Dialogs& dialogs);

    const TransferListWords& words() const { return m_words; }
    virtual int itemCount() const = 0;
    virtual TransferRow row(int index) const = 0;
    virtual QString headerText() const = 0;
    /// The values lie in the page's state.
    virtual std::vector<TransferOption> options() = 0;

    const QSet<QUuid>& selectedItemIDs() const { return m_selectedItemIDs; }
    void setSelectedItemIDs(const QSet<QUuid>& ids) { m_selectedItemIDs = ids; }

    void clear();
    void addByPanel();
    void addDropped(const QList<QUrl>& urls);
    void registerFiles(const QStringList& paths);
    void deleteOne(const QUuid& id);
    void deleteSelected();
    void exportMIDI();
    void restoreFromMIDI();
    /// Sends the row to the module and lets it show or play it.
    void runOnModule(const QUuid& id);

Q_SIGNALS:
    void listChanged();

protected:
    virtual void clearItems() = 0;
    virtual void removeItems(const QSet<QUuid>& ids) = 0;
    virtual void renumber() = 0;
    /// Loads the file and adds it, where there is room for it. False: the application is to quit. Throws when it
    /// cannot be loaded.
    virtual bool addFile(const QString& path) = 0;
    /// The list as a MIDI file. Throws when it cannot be said to the module.
    virtual std::vector<std::uint8_t> exportedBytes() const = 0;
    /// What replaces the list by the items of the file; empty when there are none. Throws when it cannot be read.
    /// Called on another thread; touches nothing of the page.
    virtual std::function<void()> readReplacement(const QString& path) = 0;
    virtual void sendToModule(const QUuid& id) = 0;

    MIDIOutManager& midiOutManager() const { return m_midiOutManager; }
    void report(const char* text);
    /// `done` steps of `count`.
    void showProgress(std::size_t done, std::size_t count);

private:
    void inTurn(std::function<void()> action);
    void runNext();
    void addFiles(const QStringList& paths);
    bool addOrReport(const QString& path);
    void finishDeletion();
    void restore(const QString& path);

    const TransferListWords& m_words;
    MIDIOutManager& m_midiOutManager;
    Dialogs& m_dialogs;
    QSet<QUuid> m_selectedItemIDs;
    bool m_isBusy = false;
    std::deque<std::function<void()>> m_waitingActions;
};

} // namespace orvim
