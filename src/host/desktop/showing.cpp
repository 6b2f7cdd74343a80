#include "host/desktop/showing.h"

#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <algorithm>

namespace desktop {

namespace {

constexpr int kLargestTimes = 64;  // nobody has a larger screen: the file was tampered with

QString FilePath() {
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + "/window.ini";
}

// A screen is the same if it still has its name, its place, its size and its scale.
QString SignatureOf(const QScreen& screen) {
    const QRect place = screen.geometry();
    return QString("%1 %2x%3+%4+%5 %6")
        .arg(screen.name())
        .arg(place.width())
        .arg(place.height())
        .arg(place.x())
        .arg(place.y())
        .arg(screen.devicePixelRatio());
}

const QScreen* FindScreen(const QString& signature) {
    const auto screens = QGuiApplication::screens();
    const auto found =
        std::ranges::find_if(screens, [&](const QScreen* each) { return SignatureOf(*each) == signature; });
    return found == screens.end() ? nullptr : *found;
}

}  // namespace

int LargestTimes(QSize picture, QSize around, QSize room) {
    const QSize left = room - around;
    return std::max(1, std::min(left.width() / picture.width(), left.height() / picture.height()));
}

Showing RecallShowing() {
    const QSettings kept(FilePath(), QSettings::IniFormat);
    Showing showing;
    showing.calm = kept.value("calm").toBool();
    showing.fit = kept.value("fit").toBool();
    const QScreen* screen = FindScreen(kept.value("screen").toString());
    if (!screen) return showing;
    showing.times = kept.value("times").toInt();
    if (showing.times < 0 || showing.times > kLargestTimes) showing.times = 0;
    showing.fullScreen = kept.value("fullScreen").toBool();
    const QPoint place = kept.value("place").toPoint();
    if (kept.contains("place") && screen->availableGeometry().contains(place)) showing.place = place;
    return showing;
}

void RememberShowing(const Showing& showing, const QScreen& screen) {
    QSettings kept(FilePath(), QSettings::IniFormat);
    kept.setValue("calm", showing.calm);
    kept.setValue("fit", showing.fit);
    kept.setValue("screen", SignatureOf(screen));
    kept.setValue("times", showing.times);
    kept.setValue("fullScreen", showing.fullScreen);
    if (showing.place) {
        kept.setValue("place", *showing.place);
    } else {
        kept.remove("place");
    }
}

}  // namespace desktop
