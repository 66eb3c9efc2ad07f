// SPDX-License-Identifier: MIT
// The letters of Vietnamese that ASCII does not have, in capital and small form.
#pragma once

namespace vndesk::check {

inline constexpr wchar_t kVietnameseLetters[] =
    L"àáảãạăằắẳẵặâầấẩẫậđèéẻẽẹêềếểễệìíỉĩịòóỏõọôồốổỗộơờớởỡợùúủũụưừứửữựỳýỷỹỵ"
    L"ÀÁẢÃẠĂẰẮẲẴẶÂẦẤẨẪẬĐÈÉẺẼẸÊỀẾỂỄỆÌÍỈĨỊÒÓỎÕỌÔỒỐỔỖỘƠỜỚỞỠỢÙÚỦŨỤƯỪỨỬỮỰỲÝỶỸỴ";

} // namespace vndesk::check
