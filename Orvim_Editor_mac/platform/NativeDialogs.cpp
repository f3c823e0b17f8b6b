#include "platform/NativeDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

#include <array>

namespace orvim {

namespace {

struct FileKindRow {
    const char* name;
    const char* extensions; ///< separated by blanks; the first is the one that a saved file gets
};

constexpr std::array<FileKindRow, 4> fileKinds{{
    {"MIDIファイル", "mid midi smf"},
    {"WAVファイル", "wav"},
    {"画像ファイル", "bmp jpg jpeg png"},
    {"PNG画像", "png"},
}};

const FileKindRow& row(FileKind kind)
{
    return fileKinds[static_cast<std::size_t>(kind)];
}

QStringList extensions(FileKind kind)
{
    return QString::fromUtf8(row(kind).extensions).split(QLatin1Char(' '));
}

QString nameFilter(FileKind kind)
{
    QStringList patterns;
    for (const QString& extension : extensions(kind))
        patterns << QStringLiteral("*.%1 *.%2").arg(extension, extension.toUpper());
    return QStringLiteral("%1 (%2)").arg(QString::fromUtf8(row(kind).name), patterns.join(QLatin1Char(' ')));
}

bool isPortalPath(const QString& path)
{
    static const QRegularExpression portal(QStringLiteral("^/run/user/[^/]+/doc/"));
    return portal.match(path).hasMatch();
}

} // namespace

QString withExtension(const QString& path, FileKind kind)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (extensions(kind).contains(suffix) || isPortalPath(path)) return path;
    return path + QLatin1Char('.') + extensions(kind).first();
}

std::optional<QString> NativeDialogs::openPath(FileKind kind)
{
    QFileDialog dialog(QApplication::activeWindow(), QString(), m_folder, nameFilter(kind));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QStringList paths = run(dialog);
    return paths.isEmpty() ? std::nullopt : std::optional(paths.first());
}

QStringList NativeDialogs::openPaths(FileKind kind)
{
    QFileDialog dialog(QApplication::activeWindow(), QString(), m_folder, nameFilter(kind));
    dialog.setFileMode(QFileDialog::ExistingFiles);
    return run(dialog);
}

std::optional<QString> NativeDialogs::savePath(const QString& proposedName, FileKind kind)
{
    QFileDialog dialog(QApplication::activeWindow(), QString(), m_folder, nameFilter(kind));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(extensions(kind).first());
    dialog.selectFile(proposedName);
    const QStringList paths = run(dialog);
    if (paths.isEmpty()) return std::nullopt;
    const QString path = withExtension(paths.first(), kind);
    // The dialog has asked about the name that was typed, and this one may stand for another file.
    const bool isOtherFile = path != paths.first() && QFileInfo::exists(path);
    if (isOtherFile &&
        !askYesNo(QStringLiteral("%1 はすでに存在します。上書きしますか？").arg(QFileInfo(path).fileName())))
        return std::nullopt;
    return path;
}

bool NativeDialogs::askYesNo(const QString& question)
{
    QMessageBox box(QMessageBox::Question, QString(), question, QMessageBox::NoButton, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText); // a file's name may look like markup
    QPushButton* const yes = box.addButton(QStringLiteral("はい"), QMessageBox::YesRole);
    QPushButton* const no = box.addButton(QStringLiteral("いいえ"), QMessageBox::NoRole);
    // Every question of the editor is about losing something, so that Return alone does not.
    box.setDefaultButton(no);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes;
}

QStringList NativeDialogs::run(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted) return {};
    const QStringList paths = dialog.selectedFiles();
    if (!paths.isEmpty()) m_folder = QFileInfo(paths.first()).absolutePath();
    return paths;
}

} // namespace orvim
