#include "adapters/image/file_camera.h"
#include "base/os/library.h"
#include "com/object.h"
#include "component/composition.h"
#include "component/environment.h"
#include "ports/camera/camera_module.h"

namespace opd::composition {

namespace {

/// Stands for the real camera, which it looks for when it is first used.
class CameraOfProcess final : public Camera {
  public:
    std::optional<Image> takeStill() override {
        const std::string file = environment::value(environment::cameraFile);
        if (!file.empty())
            return adapters::FileCamera{file, images()}.takeStill();
        if (environment::value(environment::desktop) == "scripted")
            return std::nullopt;
        if (m_real == nullptr)
            m_real = openModule();
        return m_real == nullptr ? std::nullopt : m_real->takeStill();
    }

  private:
    /// Null where the module does not lie beside the component: a workstation that is to have no camera.
    static Camera* openModule() {
        const std::filesystem::path file = moduleFolder() / os::libraryFileName("opd-camera-qt");
        if (std::error_code ignored; !std::filesystem::exists(file, ignored))
            return nullptr;
        try {
            const os::Library module{file};
            return module.function<std::remove_pointer_t<CreateCamera>>(createCameraSymbol)();
        } catch (const os::LibraryError&) { // without the toolkit's libraries for cameras there is none
            return nullptr;
        }
    }

    Camera* m_real = nullptr; ///< lives as long as the process
};

} // namespace

Camera& camera() {
    static CameraOfProcess ofProcess;
    return ofProcess;
}

} // namespace opd::composition
