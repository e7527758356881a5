// The test programs' entry: an offscreen application, so windows can be built and shown
// without a display, then GoogleTest. HOME and the XDG folders point into a folder of the
// run's own, so that nothing a desk writes for the user's session (desktop and start-up
// entries) lands in the real home.
#include <QApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen")
                                                                    : qgetenv("QT_QPA_PLATFORM"));
    const QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(QDir(home.path()).filePath(".config")));
    qputenv("XDG_DATA_HOME", QFile::encodeName(QDir(home.path()).filePath(".local/share")));
    QApplication app(argc, argv);
    // The desk's journal stays quiet in tests; a test that reads it switches it on.
    QLoggingCategory::setFilterRules(QStringLiteral("tarvimenta.*=false"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
