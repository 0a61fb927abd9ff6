#include "platform/qt/qt_settings_store.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

namespace {

TEST(QtSettingsStore, KeepsEveryTextAndReadsNothingElseAsText) {
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    const QString path = folder.filePath("Vantorin/Vantorin.conf");
    platform::QtSettingsStore store;
    const auto get = [&] { return store.Get("Vantorin", "Settings", "Timeout", "fallback"); };
    EXPECT_EQ(get(), "fallback");
    for (const std::string value : {"", " a:\\,;\"%20\"\r\n#[\xc3\x9f] ", "@Invalid()"}) {
        store.Put("Vantorin", "Settings", "Timeout", value);
        EXPECT_EQ(get(), value);
    }
    EXPECT_EQ(store.Get("Vantorin", "Settings", "Other", "-"), "-");
    EXPECT_EQ(store.Get("Other", "Settings", "Timeout", "-"), "-");
    EXPECT_TRUE(QFile::exists(path)) << "in this test's folder";

    for (const QByteArray& damage :
         {QByteArray("[Settings]\nTimeout=@Size(1 2)"), QByteArray("[Settings]\nTimeout=1, 2"),
          QByteArray(100'000, '\xa5')}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(damage);
        file.close();
        EXPECT_EQ(get(), "fallback") << damage.toStdString();
        store.Put("Vantorin", "Settings", "Timeout", "30");
        EXPECT_EQ(get(), "30");
    }

    ASSERT_TRUE(QFile::remove(path) && QDir().mkpath(path));  // a folder in place of the file
    store.Put("Vantorin", "Settings", "Timeout", "20");
    EXPECT_TRUE(QDir(path).exists()) << "it is ignored";
}

}  // namespace
