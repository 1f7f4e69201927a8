#include "com/exports.h"
#include "component/init_dll_object.h"

using namespace opd;

static com::Server& componentServer() {
    static com::Server server{initDllProgramId, classIdInitDLL,
                              [] { return com::Ref<com::IUnknown>::taking(new InitDLL(componentServer())); }};
    return server;
}
