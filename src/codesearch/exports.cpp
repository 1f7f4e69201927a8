#include "codesearch/code_search.h"

namespace {

using namespace opd;

constexpr com::Guid classId{0x3E7A51C4, 0x92DB, 0x4F08, {0xB6, 0x1D, 0x70, 0x4C, 0xE8, 0x25, 0x9A, 0xF1}};

com::Server& server() {
    static com::Server theServer{"Trellicode.clsCodeSearch", classId,
                                 [] { return com::Ref<com::IUnknown>::taking(new codesearch::CodeSearch(server())); }};
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
