#include "ApplicationStyle.h"
#include "EditorRuntime.h"
#include "MainWindow.h"
#include "platform/ALSAMIDISystem.h"
#include "platform/ImageTransferItems.h"
#include "platform/NativeDialogs.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    orvim::limitPictureMemory();
    QApplication application(argc, argv);
    orvim::applyApplicationStyle(application);
    orvim::EditorRuntime runtime(std::make_unique<orvim::ALSAMIDISystem>());
    orvim::NativeDialogs dialogs;
    orvim::MainWindow window(runtime, dialogs);
    QObject::connect(&window, &orvim::MainWindow::closed, &application, &QCoreApplication::quit);
    window.show();
    return QApplication::exec();
}
