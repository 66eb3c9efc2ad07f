' SPDX-License-Identifier: MIT
' Makes a Jet 4.0 database from jet.sql:  C:\Windows\SysWOW64\cscript load_jet.vbs host.mdb
' (the 32-bit script host: the Jet provider exists for 32-bit programs only).
Option Explicit
Dim target, partial, here, fso, stream, lines, line, statement, catalog, connection, connectString, count

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "usage: cscript load_jet.vbs NEW.mdb"
    WScript.Quit 1
End If
Set fso = CreateObject("Scripting.FileSystemObject")
target = fso.GetAbsolutePathName(WScript.Arguments(0))
If fso.FileExists(target) Then
    WScript.Echo target & " is there already"
    WScript.Quit 1
End If
' Only a whole database gets the name.
partial = target & ".partial"
If fso.FileExists(partial) Then fso.DeleteFile partial
here = fso.GetParentFolderName(WScript.ScriptFullName)

' TextStream knows no UTF-8, ADODB.Stream does.
Set stream = CreateObject("ADODB.Stream")
stream.Type = 2
stream.Charset = "utf-8"
stream.Open
stream.LoadFromFile fso.BuildPath(here, "jet.sql")
lines = Split(Replace(stream.ReadText, vbCr, ""), vbLf)
stream.Close

connectString = "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" & partial & ";Jet OLEDB:Engine Type=5"
Set catalog = CreateObject("ADOX.Catalog")
Set connection = catalog.Create(connectString)

' A statement ends with a ";" at the end of a line; no value in the script holds one.
For Each line In lines
    If Left(line, 2) <> "--" Then statement = statement & line & " "
    If Right(line, 1) = ";" And Left(line, 2) <> "--" Then
        connection.Execute statement
        statement = ""
        count = count + 1
    End If
Next
connection.Close
Set connection = Nothing
Set catalog = Nothing
fso.MoveFile partial, target
WScript.Echo count & " statements -> " & target
