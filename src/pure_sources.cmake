# SPDX-License-Identifier: MIT
# Sources without windows.h outside src/text, relative to src/, one per line: they are built and
# tested natively too. A name whose file is not there is skipped.
set(VNDESK_PURE_SOURCES
    controls/picker/text/name_search.cpp
    controls/picker/text/select_statements.cpp
    data/text/date_text.cpp
    data/text/literals.cpp
    data/text/number_text.cpp
    data/text/option_statements.cpp
    data/text/registry_value.cpp
    data/text/statements.cpp
    find/catalogue.cpp
    find/condition.cpp
    find/format_value.cpp
    find/number_display.cpp
    logon/logon_statement.cpp
    logon/password_code.cpp
    menus/item/item_colors.cpp
    menus/item/menu_caption.cpp
    menus/item/menu_char.cpp
    menus/item/menu_layout.cpp
    msgbox/button_sets.cpp
    msgbox/return_codes.cpp
    security/group_statements.cpp
    security/permissions.cpp
    security/user_statements.cpp
)
