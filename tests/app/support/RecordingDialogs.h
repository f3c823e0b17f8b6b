#pragma once

#include "platform/Dialogs.h"

#include <functional>

namespace orvim::test {

/// Dialogs without a window: they answer what the test put in, and keep what they were asked.
class RecordingDialogs : public Dialogs
{
public:
    std::optional<QString> openPath(FileKind kind) override
    {
        openedKinds << kind;
        if (whileOpening) whileOpening();
        return pathToOpen;
    }
    QStringList openPaths(FileKind kind) override
    {
        openedKinds << kind;
        return pathsToOpen;
    }
    std::optional<QString> savePath(const QString& proposedName, FileKind kind) override
    {
        proposedNames << proposedName;
        savedKinds << kind;
        return pathToSave;
    }
    bool askYesNo(const QString& question) override
    {
        questions << question;
        return answer;
    }

    std::optional<QString> pathToOpen;
    QStringList pathsToOpen;
    std::optional<QString> pathToSave;
    bool answer = false;
    std::function<void()> whileOpening; ///< what happens while the panel of `openPath` stands open
    QList<FileKind> openedKinds;
    QStringList proposedNames;
    QList<FileKind> savedKinds;
    QStringList questions;
};

} // namespace orvim::test
