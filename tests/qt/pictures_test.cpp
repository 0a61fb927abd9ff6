#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include "forms/decoration.h"
#include "ui/activity_light.h"
#include "ui/rate_graph.h"
#include "ui/thin_bar.h"
#include "widgets/app_icon.h"
#include "widgets/icons.h"
#include "widgets/system_icons.h"

namespace {

/// The mean colour of a picture. Its alpha tells how much of the area is painted.
QColor MeanOf(const QImage& image) {
    return image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

QColor MeanOf(const QIcon& icon, int side = 48, QIcon::Mode mode = QIcon::Normal) {
    return MeanOf(icon.pixmap(QSize(side, side), 1, mode).toImage());
}

/// Without the background.
QColor MeanOf(QWidget&& widget, const QSize& size = {48, 48}) {
    widget.resize(size);
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return MeanOf(image);
}

void ExpectNear(const QColor& found, const char* expected) {
    const QColor wanted(expected);
    for (const auto channel : {&QColor::alpha, &QColor::red, &QColor::green, &QColor::blue}) {
        EXPECT_NEAR((found.*channel)(), (wanted.*channel)(), 2)
            << found.name(QColor::HexArgb).toStdString() << " for " << expected;
    }
}

class Pictures : public testing::Test {
  protected:
    Pictures() { QApplication::setPalette(QPalette(Qt::lightGray)); }
    ~Pictures() override { QApplication::setPalette(usual_); }

  private:
    const QPalette usual_ = QApplication::palette();
};

TEST_F(Pictures, OfButtonsSuitLightAndDarkDesktopsAndArePaleIfDisabled) {
    using ui::Picture;
    const struct {
        Picture picture;
        const char *light, *dark, *disabled;
    } rows[] = {{Picture::Start, "#6d258338", "#6d3fdc5e", "#6d858585"},
                {Picture::Stop, "#bccd5c54", "#bcff776e", "#bc919191"},
                {Picture::Filters, "#714d5a90", "#717187d0", "#71858585"},
                {Picture::Explore, "#97c18c1b", "#97ffcb58", "#97858585"},
                {Picture::Warning, "#7db48518", "#7de2b145", "#7d767676"}};
    for (const auto& row : rows) {
        const QIcon icon = ui::ButtonIcon(row.picture);
        ExpectNear(MeanOf(icon), row.light);
        ExpectNear(MeanOf(icon, 48, QIcon::Disabled), row.disabled);
        QApplication::setPalette(QPalette(QColor(0x32, 0x30, 0x30)));
        ExpectNear(MeanOf(icon), row.dark);
        QApplication::setPalette(QPalette(Qt::lightGray));
    }
}

TEST_F(Pictures, OfEverythingElseAreWhole) {
    using Subject = ui::Decoration::Subject;
    const auto light = [](ui::ActivityLight::State state) {
        ui::ActivityLight shown(nullptr);
        shown.Show(state);
        return MeanOf(std::move(shown));
    };
    const auto bar = [](bool alarming) {
        ui::ThinBar shown("", nullptr);
        shown.setRange(0, 1000);
        shown.setValue(300);
        shown.SetAlarming(alarming);
        return MeanOf(std::move(shown), {200, 5});
    };
    ui::RateGraph graph(nullptr);
    for (int second = 0; second <= 60; ++second)
        graph.Sample(50 * second * second);
    const std::pair<QColor, const char*> pictures[] = {
        {MeanOf(ui::SystemIcon(QStyle::SP_MessageBoxInformation)), "#a93c77c0"},
        {MeanOf(ui::SystemIcon(QStyle::SP_MessageBoxCritical)), "#a9cf5b53"},
        {MeanOf(ui::SystemIcon(QStyle::SP_DriveHDIcon)), "#8e8e97a0"},
        {MeanOf(ui::SystemIcon(QStyle::SP_DirClosedIcon)), "#90cf9a2e"},
        {MeanOf(ui::SystemIcon(QStyle::SP_DirOpenIcon)), "#86ca962a"},
        {MeanOf(ui::AppIcon(), 16), "#bd8c9ea2"},
        {MeanOf(ui::AppIcon()), "#c194a3a3"},
        {MeanOf(ui::Decoration("", Subject::Globe, nullptr)), "#954f90d1"},
        {MeanOf(ui::Decoration("", Subject::Arrow, nullptr)), "#4249ae59"},
        {MeanOf(ui::Decoration("", Subject::Folder, nullptr)), "#86d9a748"},
        {MeanOf(ui::Decoration("", Subject::Funnel, nullptr), {80, 48}), "#317d87d0"},
        {light(ui::ActivityLight::State::Idle), "#09000000"},
        {light(ui::ActivityLight::State::Downloading), "#4934b94d"},
        {light(ui::ActivityLight::State::Paused), "#49b99338"},
        {bar(false), "#6b21628a"},
        {bar(true), "#6b912921"},
        {MeanOf(std::move(graph), {240, 60}), "#4b3088be"}};
    for (const auto& [mean, expected] : pictures)
        ExpectNear(mean, expected);
}

}  // namespace
