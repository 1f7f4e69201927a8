#include "ports/camera/camera_module.h"

#include "adapters/qt/basics/qt_image.h"

#include <QCamera>
#include <QCameraDevice>
#include <QDir>
#include <QEventLoop>
#include <QImageCapture>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QMediaCaptureSession>
#include <QMediaDevices>
#include <QTimer>

#include <chrono>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 6s;
constexpr auto exposureTime = 500ms; // the first frames of a camera are dark

/// Has the toolkit ask the system itself for cameras. Where it can it asks GStreamer, whose part for cameras comes with
/// no package that the desk needs, and without which there is none.
void chooseBackend() {
    QLoggingCategory::setFilterRules("default.debug=false"); // that part tells standard error each thing it does
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/multimedia");
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND") && !plugins.entryList({"*ffmpeg*"}).isEmpty())
        qputenv("QT_MEDIA_BACKEND", "ffmpeg");
}

/// The standard camera of the workstation, switched on for one frame at a time.
class StandardCamera final : public opd::Camera {
  public:
    StandardCamera() { chooseBackend(); }

    std::optional<opd::Image> takeStill() override {
        const QCameraDevice device = QMediaDevices::defaultVideoInput();
        if (device.isNull())
            return std::nullopt;
        const QImage still = frameOf(device);
        return still.isNull() ? std::nullopt : std::optional(opd::qt::fromQt(still));
    }

  private:
    static QImage frameOf(const QCameraDevice& device) {
        QCamera camera(device);
        QImageCapture capture;
        QMediaCaptureSession session;
        session.setCamera(&camera);
        session.setImageCapture(&capture);
        QImage still;
        QEventLoop waiting;
        QObject::connect(&capture, &QImageCapture::imageCaptured, &waiting, [&](int, const QImage& frame) {
            still = frame;
            waiting.quit();
        });
        QObject::connect(&capture, &QImageCapture::errorOccurred, &waiting, &QEventLoop::quit);
        QObject::connect(&camera, &QCamera::errorOccurred, &waiting, &QEventLoop::quit);
        // A camera that is not ready takes the order and never answers.
        QTimer::singleShot(exposureTime, &waiting, [&] { captureWhenReady(capture, waiting); });
        QTimer::singleShot(patience, &waiting, &QEventLoop::quit);
        camera.start();
        waiting.exec();
        return still;
    }

    static void captureWhenReady(QImageCapture& capture, QEventLoop& waiting) {
        if (capture.isReadyForCapture()) {
            capture.capture();
            return;
        }
        QObject::connect(&capture, &QImageCapture::readyForCaptureChanged, &waiting, [&](bool ready) {
            if (ready)
                capture.capture();
        });
    }
};

} // namespace

extern "C" opd::Camera* opdCreateCamera() {
    static StandardCamera camera;
    return &camera;
}

extern "C" void opdListCameras(std::vector<std::string>* names) {
    chooseBackend();
    const QCameraDevice standard = QMediaDevices::defaultVideoInput();
    for (const QCameraDevice& device : QMediaDevices::videoInputs())
        names->insert(device == standard ? names->begin() : names->end(), device.description().toStdString());
}
