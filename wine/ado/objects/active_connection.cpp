// SPDX-License-Identifier: MIT
#include "ado/objects/active_connection.h"

#include "ado/engine/ado_error.h"
#include "ado/objects/connection_object.h"

namespace vndesk::ado {

ComPtr<_Connection> ConnectionFrom(IUnknown* object) {
    ComPtr<ISessionSource> source;
    ComPtr<_Connection> connection;
    if (object && (FAILED(object->QueryInterface(IID_PPV_ARGS(&source))) ||
                   FAILED(object->QueryInterface(IID_PPV_ARGS(&connection)))))
        ThrowMisuse(AdoMisuse::InvalidArgument);
    return connection;
}

ComPtr<_Connection> ConnectionFrom(const Argument& given) {
    if (given.IsText()) {
        const ComPtr<ConnectionObject> opened = MakeCom<ConnectionObject>();
        opened->OpenWith(given.Text(), L"", L"");
        return opened;
    }
    const VARTYPE type = V_VT(&given.Value());
    if (!given.IsMissing() && type != VT_NULL && type != VT_DISPATCH && type != VT_UNKNOWN)
        ThrowMisuse(AdoMisuse::InvalidArgument);
    return ConnectionFrom(given.Object());
}

std::shared_ptr<Session> SessionOf(IUnknown* connection) {
    ComPtr<ISessionSource> source;
    if (!connection || FAILED(connection->QueryInterface(IID_PPV_ARGS(&source))))
        return nullptr;
    return source->OpenedSession();
}

} // namespace vndesk::ado
