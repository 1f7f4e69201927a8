#include "component/init_dll_object.h"

namespace {

using namespace opd;

com::Server& server() {
    static com::Server theServer{initDllProgramId, classIdInitDLL,
                                 [] { return com::Ref<com::IUnknown>::taking(new InitDLL(server())); }};
    return theServer;
}

} // namespace

extern "C" {

com::HResult DllGetClassObject(const com::Guid& wanted, const com::Guid& interfaceId, void** object) {
    return server().getClassObject(wanted, interfaceId, object);
}

com::HResult DllCanUnloadNow() {
    return server().canUnloadNow();
}

com::HResult DllRegisterServer() {
    return server().registerServer();
}

com::HResult DllUnregisterServer() {
    return server().unregisterServer();
}
}
