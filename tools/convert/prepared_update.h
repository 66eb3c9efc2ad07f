// SPDX-License-Identifier: MIT
// A statement that runs many times, each time with other values.
#pragma once

#include <comutil.h>

#include <string>
#include <vector>

#include "convert/table.h"
#include "data/connect/command.h"

namespace vndesk::convert {

class PreparedUpdate {
public:
    // One parameter for each question mark, of the type and size of its column. Throws ComError
    // with the provider's description, as the others.
    PreparedUpdate(const AdoConnection& connection, const std::wstring& text,
                   const std::vector<Column>& parameters);

    void Set(std::size_t parameter, const _variant_t& value);
    // How many rows it has changed; negative where the provider does not say.
    long Run();

private:
    const AdoCommand command_;
    std::vector<ComPtr<_Parameter>> parameters_;
};

} // namespace vndesk::convert
