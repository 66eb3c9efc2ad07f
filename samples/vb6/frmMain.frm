VERSION 5.00
Begin VB.Form frmMain 
   Caption         =   "VnDesk host"
   ClientHeight    =   5400
   ClientLeft      =   165
   ClientTop       =   855
   ClientWidth     =   7200
   LinkTopic       =   "frmMain"
   ScaleHeight     =   5400
   ScaleWidth      =   7200
   StartUpPosition =   2  'CenterScreen
   Begin VB.ListBox lstLog 
      Height          =   5325
      IntegralHeight  =   0   'False
      Left            =   0
      TabIndex        =   0
      Top             =   0
      Width           =   7200
   End
   Begin VB.Menu mnuSystem 
      Caption         =   "&System"
      Begin VB.Menu mnuLogon 
         Caption         =   "&Log on..."
         Shortcut        =   ^L
      End
      Begin VB.Menu mnuUsers 
         Caption         =   "&Users..."
         Enabled         =   0   'False
         Shortcut        =   ^U
      End
      Begin VB.Menu mnuGroups 
         Caption         =   "&Groups and rights..."
         Enabled         =   0   'False
         Shortcut        =   ^G
      End
      Begin VB.Menu mnuExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuSearch 
      Caption         =   "S&earch"
      Begin VB.Menu mnuCustomers 
         Caption         =   "&Customers..."
         Enabled         =   0   'False
         Shortcut        =   ^F
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Help"
      Begin VB.Menu mnuQuestion 
         Caption         =   "&Question..."
         Shortcut        =   {F1}
      End
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
' SPDX-License-Identifier: MIT
' A whole host in Visual Basic 6: logon, rights, administration, search, message box. The connection string is
' the command line (Project, Properties, Make). Menu items are enabled as the user's rights are.
Option Explicit

' Commands of this program, as the table SubMenu numbers them.
Private Const kUsers As Long = 2
Private Const kGroups As Long = 3
Private Const kCustomers As Long = 5

Private m_logon As New VnDesk.clsLogon          ' one object serves every call
Private m_connect As String
Private m_user As Long
Private m_rights As Collection

Private Sub Form_Load()
    m_connect = Command$
    If Len(m_connect) = 0 Then
        MsgBox "usage: VnHost CONNECTION-STRING", vbInformation
        Unload Me
        Exit Sub
    End If
    Set m_logon.Settings = New VnDesk.clsSettings
    m_logon.Settings.UseRecommended
    Show
    mnuLogon_Click
End Sub

Private Sub Form_Resize()
    If WindowState <> vbMinimized Then lstLog.Move 0, 0, ScaleWidth, ScaleHeight
End Sub

Private Sub mnuLogon_Click()
    Dim text As Variant
    On Error GoTo Failed
    m_user = 0
    EnableCommands
    WriteLog "1. Logon"
    m_user = m_logon.ShowLogon(m_connect)
    If m_user = 0 Then
        WriteLog "   nobody has logged on"
        Exit Sub
    End If
    WriteLog "   user " & m_user
    WriteLog "2. Rights"
    EnableCommands
    For Each text In m_rights
        WriteLog "   " & text
    Next
    Exit Sub
Failed:
    ShowError
End Sub

Private Sub EnableCommands()
    Set m_rights = New Collection
    If m_user <> 0 Then Set m_rights = ReadRights(m_connect, m_user)
    mnuUsers.Enabled = Allows(m_rights, kUsers)
    mnuGroups.Enabled = Allows(m_rights, kGroups)
    mnuCustomers.Enabled = Allows(m_rights, kCustomers)
End Sub

Private Sub mnuUsers_Click()
    On Error GoTo Failed
    WriteLog "3. Administration"
    m_logon.UserManager m_connect
    WriteLog "   user list closed"
    EnableCommands                              ' the form may have changed the user
    Exit Sub
Failed:
    ShowError
End Sub

Private Sub mnuGroups_Click()
    On Error GoTo Failed
    WriteLog "3. Administration"
    m_logon.ShowGroup m_connect
    WriteLog "   group manager closed"
    EnableCommands                              ' the form may have changed the rights
    Exit Sub
Failed:
    ShowError
End Sub

Private Sub mnuCustomers_Click()
    Dim search As New VnDesk.clsSearch
    Dim tools As New VnDesk.Varnok
    Dim db As Object, rows As Object
    Dim count As Long

    On Error GoTo Failed
    WriteLog "4. Search"
    search.ActiveConnection = m_connect
    search.TableSearch = "KhachHang"
    search.Show vbModal, Me
    If search.Result = "" Then
        WriteLog "   cancelled"
        Exit Sub
    End If
    WriteLog "   " & search.Result
    Set db = CreateObject("ADODB.Connection")
    db.Open m_connect
    Set rows = db.Execute("SELECT MaKH,[Name],CongNo FROM KhachHang WHERE " & search.Result & " ORDER BY MaKH")
    Do Until rows.EOF
        WriteLog "   " & rows.Fields("MaKH").Value & " " & rows.Fields("Name").Value & " " & _
            tools.CvNStr(rows.Fields("CongNo").Value)
        count = count + 1
        rows.MoveNext
    Loop
    db.Close
    WriteLog "   " & count & " rows"
    Dim words As New VnDesk.clsText
    WriteLog "   " & words.NumberToWords(count)
    Exit Sub
Failed:
    ShowError
End Sub

Private Sub mnuQuestion_Click()
    On Error GoTo Failed
    WriteLog "5. Message"
    If m_logon.Ask("B" & ChrW(&H1EA1) & "n " & ChrW(&H111) & ChrW(&HE3) & " xem xong ch" & ChrW(&H1B0) & "a?", _
                   VnDesk.vbYesNo, VnDesk.vbQuestion, "VnDesk") = VnDesk.vnAnswerYes Then
        WriteLog "   yes"
    Else
        WriteLog "   no"
    End If
    Exit Sub
Failed:
    ShowError
End Sub

Private Sub mnuExit_Click()
    Unload Me
End Sub

Private Sub WriteLog(ByVal text As String)
    lstLog.AddItem text
    lstLog.ListIndex = lstLog.NewIndex
    Debug.Print text
End Sub

Private Sub ShowError()
    WriteLog "Error 0x" & Hex$(Err.Number) & ": " & Err.Description
End Sub
