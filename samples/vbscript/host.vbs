' SPDX-License-Identifier: MIT
' A whole host in VBScript: logon, rights, administration, search, message box.
'   cscript //nologo host.vbs CONNECTION-STRING
' Exit code 0 when somebody has logged on, 1 when nobody has, 2 after an error.
Option Explicit

' Commands of this program, as the table SubMenu numbers them.
Const kUsers = 2
Const kGroups = 3
Const kCustomers = 5
Const kYesNo = 4
Const kQuestion = 32
Const kYes = 6
Const kUnicode = 0
Const kTcvn3 = 1

Dim exitCode
If WScript.Arguments.Count <> 1 Then
    WScript.Echo "usage: cscript //nologo host.vbs CONNECTION-STRING"
    WScript.Quit 2
End If
exitCode = 2
On Error Resume Next
exitCode = Run(WScript.Arguments(0))
If Err.Number <> 0 Then WScript.Echo "Error 0x" & Hex(Err.Number) & ": " & Err.Description
WScript.Quit exitCode

Function Run(ByVal connect)
    Dim logon, user, rights, id
    WScript.Echo "1. Logon"
    Set logon = CreateObject("VnDesk.clsLogon")
    Set logon.Settings = CreateObject("VnDesk.clsSettings")
    logon.Settings.UseRecommended
    logon.MaxTries = 5
    user = logon.ShowLogon(connect)
    If user = 0 Then
        WScript.Echo "   nobody has logged on"
        Run = 1
        Exit Function
    End If
    WScript.Echo "   user " & user

    WScript.Echo "2. Rights"
    Set rights = ReadRights(connect, user)
    For Each id In rights.Keys
        WScript.Echo "   " & id & " " & rights(id)
    Next

    WScript.Echo "3. Administration"
    If rights.Exists(kUsers) Then
        logon.UserManager connect
        WScript.Echo "   user list closed"
    Else
        WScript.Echo "   user list not allowed"
    End If
    If rights.Exists(kGroups) Then
        logon.ShowGroup connect
        WScript.Echo "   group manager closed"
    Else
        WScript.Echo "   group manager not allowed"
    End If
    Set rights = ReadRights(connect, user) ' the forms may have changed them

    WScript.Echo "4. Search"
    If rights.Exists(kCustomers) Then
        FindCustomers connect
    Else
        WScript.Echo "   not allowed"
    End If

    WScript.Echo "5. Message"
    ' From TCVN3 with one character per byte. On Windows write ChrW and Unicode, which Wine does not know.
    Dim question
    question = CreateObject("VnDesk.clsText").Convert( _
        "B" & Chr(185) & "n " & Chr(174) & Chr(183) & " xem xong ch" & Chr(173) & "a?", kTcvn3, kUnicode)
    If logon.Ask(question, kYesNo, kQuestion, "VnDesk") = kYes Then
        WScript.Echo "   yes"
    Else
        WScript.Echo "   no"
    End If
    Run = 0
End Function

' The commands that the user's group may run, SubMenu.ID -> SubMenu.Desc. Groups has one mask per row of
' Menu, from its fourth column on; bit i is the command at place i of that menu.
Function ReadRights(connect, user)
    Dim db, group, rows, allowed, masks, places, column, bar
    Set allowed = CreateObject("Scripting.Dictionary")
    Set masks = CreateObject("Scripting.Dictionary")
    Set places = CreateObject("Scripting.Dictionary")
    Set db = CreateObject("ADODB.Connection")
    db.Open connect
    Set group = db.Execute("SELECT * FROM Groups WHERE Code IN " & _
                           "(SELECT IdGroup FROM [User] WHERE Code=" & user & ")")
    If Not group.EOF Then ' else the group has been deleted
        column = 3
        Set rows = db.Execute("SELECT ID FROM Menu")
        Do Until rows.EOF Or column = group.Fields.Count
            If Not IsNull(group.Fields(column).Value) Then
                masks(CLng(rows.Fields("ID").Value)) = CLng(group.Fields(column).Value)
            End If
            column = column + 1
            rows.MoveNext
        Loop
        Set rows = db.Execute("SELECT ID,IdMenuBar,[Desc] FROM SubMenu ORDER BY ID")
        Do Until rows.EOF
            bar = CLng(rows.Fields("IdMenuBar").Value)
            places(bar) = places(bar) + 1 ' from 1; a menu has room for 31 commands
            If places(bar) <= 31 Then
                If masks(bar) And CLng(2 ^ (places(bar) - 1)) Then
                    allowed(CLng(rows.Fields("ID").Value)) = rows.Fields("Desc").Value
                End If
            End If
            rows.MoveNext
        Loop
    End If
    db.Close
    Set ReadRights = allowed
End Function

Sub FindCustomers(connect)
    Dim search, command, tools, rows, count
    Set search = CreateObject("VnDesk.clsSearch")
    search.ActiveConnection = connect
    search.TableSearch = "KhachHang"
    search.Show 1
    If search.Result = "" Then
        WScript.Echo "   cancelled"
        Exit Sub
    End If
    WScript.Echo "   " & search.Result
    Set command = search.CreateCommand("SELECT MaKH,[Name],CongNo FROM KhachHang")
    command.CommandText = command.CommandText & " ORDER BY MaKH"
    Set rows = command.Execute
    Set tools = CreateObject("VnDesk.Varnok")
    count = 0
    Do Until rows.EOF
        WScript.Echo "   " & rows.Fields("MaKH").Value & " " & rows.Fields("Name").Value & " " & _
                     tools.CvNStr(rows.Fields("CongNo").Value)
        count = count + 1
        rows.MoveNext
    Loop
    search.ActiveConnection.Close
    WScript.Echo "   " & count & " rows"
    WScript.Echo "   " & CreateObject("VnDesk.clsText").NumberToWords(count)
End Sub
