' SPDX-License-Identifier: MIT
' Asks for a logon and says who it was.
'   cscript //nologo logon.vbs "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\data\host.db;Jet OLEDB:Engine Type=5"
' Exit code 0 when somebody has logged on, 1 else.
Option Explicit
Dim connect, logon, code, pressed, users

If WScript.Arguments.Count < 1 Then
    WScript.Echo "usage: logon.vbs CONNECTION-STRING"
    WScript.Quit 2
End If
connect = WScript.Arguments(0)

Set logon = CreateObject("VnDesk.clsLogon")
code = logon.ShowLogon(connect)
WScript.Echo "Code=" & code
If code = 0 Then
    ' The library's message box takes its texts in TCVN3, one character per byte:
    ' "Ban chua dang nhap." with its marks. The result is the pressed button's number as text.
    pressed = logon.MgBox("B" & Chr(185) & "n ch" & Chr(173) & "a " & Chr(174) & Chr(168) & "ng nh" & Chr(203) & "p.", 0, "VnDesk", 48)
    WScript.Quit 1
End If

' What else the host wants to know, it reads from its own database.
Set users = CreateObject("ADODB.Recordset")
users.Open "SELECT [Name] FROM [User] WHERE [Code]=" & code, connect
If Not users.EOF Then WScript.Echo users.Fields("Name").Value
users.Close
WScript.Quit 0
