// SPDX-License-Identifier: MIT
#include "data/text/reserved_words.h"

#include <string>

#include "text/ascii_text.h"

namespace vndesk {

namespace {

// Of Jet, SQL Server, PostgreSQL, SQLite, MySQL and MariaDB together. One text: a table of texts
// would be four times as long. Words that are values by themselves, as NULL and CURRENT_DATE, are
// left to those who mean them.
constexpr std::wstring_view kWords =
    L" "
    L"accessible add all alphanumeric alter analyse analyze and any array as asc "
    L"asensitive assertion asymmetric authorization autoincrement backup before "
    L"begin between bigint binary bit blob boolean both break browse bulk by byte "
    L"call cascade case cast change char character check checkpoint close clustered "
    L"coalesce collate collation column commit compute concurrently condition "
    L"constraint contains containstable continue convert counter create cross cube "
    L"currency current cursor database databases date datetime dbcc deallocate dec "
    L"decimal declare default deferrable delayed delete deny desc describe "
    L"deterministic disk distinct distinctrow distributed div do double drop dual "
    L"dump each else elseif empty enclosed end errlvl escape escaped except exec "
    L"execute exists exit explain external fetch file fillfactor first_value float "
    L"float4 float8 for force foreign freetext freetexttable freeze from full "
    L"fulltext function generated get goto grant group grouping groups guid having "
    L"high_priority holdlock identity identity_insert identitycol if ignore ilike "
    L"image in index infile initially inner inout insensitive insert int int1 int2 "
    L"int3 int4 int8 integer intersect interval into is isnull iterate join key "
    L"keys kill lag last_value lateral lead leading leave left level like limit "
    L"linear lineno lines load localtime localtimestamp lock logical long longblob "
    L"longtext loop low_priority match maxvalue mediumblob mediumint mediumtext "
    L"memo merge middleint mod modifies money national natural nocheck nonclustered "
    L"not note nothing notnull nth_value ntile nullif number numeric of off offset "
    L"offsets oleobject on only open opendatasource openquery openrowset openxml "
    L"optimize option optionally or order out outer outfile over overlaps "
    L"owneraccess parameters partition password percent percent_rank pivot placing "
    L"plan position precision primary print proc procedure public purge raiserror "
    L"range rank read reads readtext real reconfigure recursive references regexp "
    L"release rename repeat replace replication require resignal restore restrict "
    L"return returning revert revoke right rlike rollback row row_number rowcount "
    L"rowguidcol rows rule save schema schemas section securityaudit select "
    L"sensitive separator session_user set setuser short show shutdown signal "
    L"similar single smallint some spatial specific sql sqlexception sqlstate "
    L"sqlwarning ssl starting statistics stored straight_join symmetric system "
    L"system_user table tablesample terminated text textsize then time timestamp "
    L"tinyblob tinyint tinytext to top trailing tran transaction transform trigger "
    L"truncate tsequal undo union unique unlock unpivot unsigned update updatetext "
    L"usage use user using value values varbinary varchar variadic varying verbose "
    L"view virtual waitfor when where while window with within write writetext xor "
    L"year_month yesno zerofill zone ";

} // namespace

bool IsReservedWord(std::wstring_view word) {
    const std::wstring whole = L" " + std::wstring(word) + L" ";
    return FindIgnoringCase(kWords, whole) != std::wstring_view::npos;
}

} // namespace vndesk
