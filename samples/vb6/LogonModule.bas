Attribute VB_Name = "LogonModule"
' SPDX-License-Identifier: MIT
' For Visual Basic 6 (project LogonHost.vbp) and VBA (import this file and set a reference to
' "VnDesk 1.0"). Put the path of your own database into kConnect.
Option Explicit

Private Const kConnect As String = _
    "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\data\host.mdb;Jet OLEDB:Engine Type=5"

Public Sub Main()
    Dim logon As New VnDesk.clsLogon
    Dim connect As String
    Dim code As Long

    connect = kConnect
    code = logon.ShowLogon(connect)
    If code = 0 Then
        ' TCVN3 text: "Ban chua dang nhap." with its marks.
        logon.MgBox "B" & ChrW(185) & "n ch" & ChrW(173) & "a " & ChrW(174) & ChrW(168) & _
            "ng nh" & ChrW(203) & "p.", VnDesk.vbOKOnly, "VnDesk", VnDesk.vbExclamation
        Exit Sub
    End If
    MsgBox "Code=" & code
End Sub
