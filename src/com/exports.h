#pragma once

#include "com/server.h"

/// The server of the library; defined by the one file of a component that includes this header.
static opd::com::Server& componentServer();

/// The four functions that every component library exports.
extern "C" {

opd::com::HResult DllGetClassObject(const opd::com::Guid& wanted, const opd::com::Guid& interfaceId, void** object) {
    return componentServer().getClassObject(wanted, interfaceId, object);
}

opd::com::HResult DllCanUnloadNow() {
    return componentServer().canUnloadNow();
}

opd::com::HResult DllRegisterServer() {
    return componentServer().registerServer();
}

opd::com::HResult DllUnregisterServer() {
    return componentServer().unregisterServer();
}
}
