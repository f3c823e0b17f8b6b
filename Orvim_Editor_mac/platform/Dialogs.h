#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace orvim {

/// The kinds of files that the editor opens and saves; each has its own filter and extension.
enum class FileKind { midi, wave, picture, png };

/// Choosing files and asking questions. Pages reach the user through this, so that their actions run without a window.
class Dialogs
{
public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    /// One existing file, or nothing when the user cancels.
    virtual std::optional<QString> openPath(FileKind kind) = 0;
    /// Existing files in the order in which the dialog gives them; none when the user cancels.
    virtual QStringList openPaths(FileKind kind) = 0;
    /// Where to save; the kind's extension is added where the user left it out, and overwriting has been confirmed.
    virtual std::optional<QString> savePath(const QString& proposedName, FileKind kind) = 0;
    /// Asks with the buttons "はい" and "いいえ"; true only for the first.
    virtual bool askYesNo(const QString& question) = 0;
};

} // namespace orvim
