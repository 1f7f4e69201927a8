#include "com/exports.h"
#include "codesearch/code_search.h"

using namespace opd;

static com::Server& componentServer() {
    constexpr com::Guid classId{0x3E7A51C4, 0x92DB, 0x4F08, {0xB6, 0x1D, 0x70, 0x4C, 0xE8, 0x25, 0x9A, 0xF1}};
    static com::Server server{"Trellicode.clsCodeSearch", classId, [] {
                                  return com::Ref<com::IUnknown>::taking(new codesearch::CodeSearch(componentServer()));
                              }};
    return server;
}
