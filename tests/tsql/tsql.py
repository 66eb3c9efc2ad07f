#!/usr/bin/python3
# SPDX-License-Identifier: MIT
# tsql.py FILE...: puts each line, a statement, through a parser of SQL Server's language. Prints line and reason of
# those that are refused, then the number of all. Exit code 0 when none is refused and there was one.
#
# The parser is made to read much: what it takes for a command that it does not know, for names of another engine or
# for its functions is refused here.
import re
import sys

from sqlglot import exp, parse
from sqlglot.errors import SqlglotError

STATEMENTS = (exp.Select, exp.Insert, exp.Update, exp.Delete)
FUNCTIONS = {"GETUTCDATE"}
# What has no place in a statement of the library: texts of other engines that the parser reads as well.
FOREIGN = (exp.Command, exp.Cast, exp.Boolean, exp.Limit, exp.Drop, exp.Create)
# https://learn.microsoft.com/sql/t-sql/language-elements/reserved-keywords-transact-sql
RESERVED = set(
    """add all alter and any as asc authorization backup begin between break browse bulk by cascade case check
    checkpoint close clustered coalesce collate column commit compute constraint contains containstable continue
    convert create cross current current_date current_time current_timestamp current_user cursor database dbcc
    deallocate declare default delete deny desc disk distinct distributed double drop dump else end errlvl escape
    except exec execute exists exit external fetch file fillfactor for foreign freetext freetexttable from full
    function goto grant group having holdlock identity identity_insert identitycol if in index inner insert intersect
    into is join key kill left like lineno load merge national nocheck nonclustered not null nullif of off offsets on
    open opendatasource openquery openrowset openxml option or order outer over percent pivot plan precision primary
    print proc procedure public raiserror read readtext reconfigure references replication restore restrict return
    revert revoke right rollback rowcount rowguidcol rule save schema securityaudit select
    semantickeyphrasetable semanticsimilaritydetailstable semanticsimilaritytable session_user set setuser shutdown
    some statistics system_user table tablesample textsize then to top tran transaction trigger truncate try_convert
    tsequal union unique unpivot update updatetext use user values varying view waitfor when where while with within
    writetext""".split()
)
LITERAL = re.compile(r"N'(?:[^']|'')*'|'(?:[^']|'')*'|\[(?:[^\]]|\]\])*\]")
BETWEEN = re.compile(r"[\w\s(),.=<>*?+-]*")


def reason(statement):
    """Why the statement is refused; None where it is not."""
    rest = LITERAL.sub(" x ", statement)
    if not BETWEEN.fullmatch(rest):
        return "characters that mean something to other engines: " + rest
    for literal in LITERAL.findall(statement):
        if literal.startswith("'") and not literal.isascii():
            return "letters outside ASCII without N: " + literal
    try:
        parsed = parse(statement, read="tsql")
    except (SqlglotError, IndexError) as error:
        return str(error).replace("\n", " ")
    if len(parsed) != 1 or not isinstance(parsed[0], STATEMENTS):
        return "no single statement: " + ", ".join(type(part).__name__ for part in parsed)
    for node in (found for part in parsed[0].walk() for found in (part[0] if isinstance(part, tuple) else part,)):
        if isinstance(node, FOREIGN):
            return "read as " + type(node).__name__
        if isinstance(node, exp.Anonymous) and node.name.upper() not in FUNCTIONS:
            return "no function of the library: " + node.name
        if isinstance(node, exp.Identifier) and not node.args.get("quoted") and node.name.lower() in RESERVED:
            return "reserved: " + node.name
    return None


def main(paths):
    count = refused = 0
    for path in paths:
        with open(path, encoding="utf-8") as lines:
            for number, line in enumerate(lines, 1):
                count += 1
                why = reason(line.rstrip("\r\n"))
                if why:
                    refused += 1
                    print(f"{number}\t{why}\t{line.strip()[:300]}")
    print(f"{count} statements, {refused} refused")
    return 0 if count and not refused else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
