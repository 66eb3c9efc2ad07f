// SPDX-License-Identifier: MIT
// The one place where the identifiers of the type library are defined.
#include <initguid.h>

#include "vndesk_idl.h"
