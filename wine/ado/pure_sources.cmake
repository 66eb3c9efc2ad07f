# SPDX-License-Identifier: MIT
# Sources of the bridge without windows.h, relative to wine/ado/, one per line: they are built and
# tested natively too. A name whose file is not there is skipped.
set(ADOBRIDGE_PURE_SOURCES
    connection_string.cpp
    date_value.cpp
    dialect.cpp
    number_cell.cpp
    sql_lexer.cpp
    utf8.cpp)
