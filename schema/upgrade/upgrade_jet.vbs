' SPDX-License-Identifier: MIT
' Makes the tables of version 1.1 in a Jet database:  C:\Windows\SysWOW64\cscript upgrade_jet.vbs host.mdb
' (the 32-bit script host: the Jet provider exists for 32-bit programs only). Tables that are there stay as they are.
Option Explicit
Dim fso, connection
If WScript.Arguments.Count <> 1 Then
    WScript.Echo "usage: cscript upgrade_jet.vbs DATABASE.mdb"
    WScript.Quit 1
End If
Set fso = CreateObject("Scripting.FileSystemObject")
Set connection = CreateObject("ADODB.Connection")
connection.Open "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" & fso.GetAbsolutePathName(WScript.Arguments(0)) & _
                ";Jet OLEDB:Engine Type=5"
Upgrade "VnUser", "accounts"
Upgrade "VnAudit", "audit"
connection.Close

Sub Upgrade(table, script)
    Dim file, line, statement
    If IsThere(table) Then
        WScript.Echo table & " is there already"
        Exit Sub
    End If
    Set file = fso.OpenTextFile(fso.BuildPath(fso.GetParentFolderName(WScript.ScriptFullName), script & ".jet.sql"))
    Do Until file.AtEndOfStream
        line = file.ReadLine
        If Left(line, 2) <> "--" Then statement = statement & line & " "
        ' A statement ends with a ";" at the end of a line.
        If Right(line, 1) = ";" And Left(line, 2) <> "--" Then
            connection.Execute statement
            statement = ""
        End If
    Loop
    file.Close
    WScript.Echo table & " made"
End Sub

Function IsThere(table)
    On Error Resume Next
    connection.Execute "SELECT * FROM [" & table & "] WHERE 1=0"
    IsThere = Err.Number = 0
End Function
