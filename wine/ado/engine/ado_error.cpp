// SPDX-License-Identifier: MIT
#include "ado/engine/ado_error.h"

namespace vndesk::ado {

namespace {

const wchar_t* DescriptionOf(AdoMisuse misuse) {
    switch (misuse) {
    case AdoMisuse::InvalidArgument:
        return L"Arguments are of the wrong type, are out of acceptable range, or are in conflict "
               L"with one another.";
    case AdoMisuse::NoCurrentRecord:
        return L"Either BOF or EOF is True, or the current record has been deleted. Requested "
               L"operation requires a current record.";
    case AdoMisuse::ItemNotFound:
        return L"Item cannot be found in the collection corresponding to the requested name or "
               L"ordinal.";
    case AdoMisuse::ObjectInCollection:
        return L"Object is already in collection. Cannot append.";
    case AdoMisuse::ObjectNotSet:
        return L"Object is no longer valid.";
    case AdoMisuse::DataConversion:
        return L"Application uses a value of the wrong type for the current operation.";
    case AdoMisuse::ObjectClosed:
        return L"Operation is not allowed when the object is closed.";
    case AdoMisuse::ObjectOpen:
        return L"Operation is not allowed when the object is open.";
    case AdoMisuse::ProviderNotFound:
        return L"Provider cannot be found. It may not be properly installed.";
    case AdoMisuse::CommandHasConnection:
        return L"The ActiveConnection property of a Recordset object which has a Command object as "
               L"its source cannot be changed.";
    case AdoMisuse::ParameterUndefined:
        return L"Parameter object is improperly defined. Inconsistent or incomplete information "
               L"was provided.";
    case AdoMisuse::InvalidConnection:
        return L"The connection cannot be used to perform this operation. It is either closed or "
               L"invalid in this context.";
    }
    return L"";
}

} // namespace

void ThrowMisuse(AdoMisuse misuse) {
    throw ComError(static_cast<HRESULT>(0x800A0000L | static_cast<long>(misuse)),
                   DescriptionOf(misuse));
}

} // namespace vndesk::ado
