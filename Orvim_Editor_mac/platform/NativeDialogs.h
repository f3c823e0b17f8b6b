#pragma once

#include "platform/Dialogs.h"

#include <QDir>

class QFileDialog;

namespace orvim {

/// The desktop's own file dialogs and the editor's yes/no question. Remembers the last folder for the run.
class NativeDialogs : public Dialogs
{
public:
    std::optional<QString> openPath(FileKind kind) override;
    QStringList openPaths(FileKind kind) override;
    std::optional<QString> savePath(const QString& proposedName, FileKind kind) override;
    bool askYesNo(const QString& question) override;

private:
    QStringList run(QFileDialog& dialog);

    QString m_folder = QDir::homePath();
};

/// `path` with the kind's extension where it has none of the kind's. A path handed out by a desktop portal stays as it
/// is: only that very file may be written.
QString withExtension(const QString& path, FileKind kind);

} // namespace orvim
