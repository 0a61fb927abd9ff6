#include "platform/qt/application.h"

namespace platform {

namespace {

/// Keeps Qt from choosing GLib's loop, without passing the setting on to the programs that we
/// start.
class GlibDisabler {
  public:
    GlibDisabler() : is_ours_(!qEnvironmentVariableIsSet(kVariable)) {
        if (is_ours_) qputenv(kVariable, "1");
    }
    ~GlibDisabler() {
        if (is_ours_) qunsetenv(kVariable);
    }
    GlibDisabler(const GlibDisabler&) = delete;
    GlibDisabler& operator=(const GlibDisabler&) = delete;

  private:
    static constexpr char kVariable[] = "QT_NO_GLIB";
    bool is_ours_;
};

}  // namespace

QApplication MakeApplication(int& argc, char** argv) {
    const GlibDisabler loop;
    return QApplication(argc, argv);
}

}  // namespace platform
