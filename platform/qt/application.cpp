#include "platform/qt/application.h"

namespace platform {

namespace {

/// Keeps GLib's loop from being taken, and leaves nothing of that to the programs that we start.
class WithoutGlib {
  public:
    WithoutGlib() : is_ours_(!qEnvironmentVariableIsSet(kVariable)) {
        if (is_ours_) qputenv(kVariable, "1");
    }
    ~WithoutGlib() {
        if (is_ours_) qunsetenv(kVariable);
    }
    WithoutGlib(const WithoutGlib&) = delete;
    WithoutGlib& operator=(const WithoutGlib&) = delete;

  private:
    static constexpr char kVariable[] = "QT_NO_GLIB";
    bool is_ours_;
};

}  // namespace

QApplication MakeApplication(int& argc, char** argv) {
    const WithoutGlib loop;
    return QApplication(argc, argv);
}

}  // namespace platform
