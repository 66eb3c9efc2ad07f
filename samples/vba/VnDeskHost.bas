Attribute VB_Name = "VnDeskHost"
' SPDX-License-Identifier: MIT
' A whole host in VBA: logon, rights, administration, search, message box. Import this file (File, Import),
' set a reference to "VnDesk 1.1" and run Main; the lines appear in the Immediate window (Ctrl+G).
' The same text serves 32-bit and 64-bit Office.
Option Explicit

#If Win64 Then
    ' Jet 4.0 exists for 32-bit programs only.
    Private Const kConnect As String = _
        "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=C:\data\host.mdb;Jet OLEDB:Engine Type=5"
#Else
    Private Const kConnect As String = _
        "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\data\host.mdb;Jet OLEDB:Engine Type=5"
#End If

' The window that the search belongs to: Office's own or that of a user form.
#If VBA7 Then
    Private Declare PtrSafe Function GetActiveWindow Lib "user32" () As LongPtr
#Else
    Private Declare Function GetActiveWindow Lib "user32" () As Long
#End If

' Commands of this program, as the table SubMenu numbers them.
Private Const kUsers As Long = 2
Private Const kGroups As Long = 3
Private Const kCustomers As Long = 5

Public Sub Main()
    RunHost kConnect
End Sub

Public Sub RunHost(ByVal connect As String)
    Dim logon As VnDesk.clsLogon
    Dim rights As Collection
    Dim user As Long
    Dim text As Variant

    On Error GoTo Failed
    Debug.Print "1. Logon"
    Set logon = New VnDesk.clsLogon
    Set logon.Settings = New VnDesk.clsSettings
    logon.Settings.UseRecommended
    user = logon.ShowLogon(connect)
    If user = 0 Then
        Debug.Print "   nobody has logged on"
        Exit Sub
    End If
    Debug.Print "   user " & user

    Debug.Print "2. Rights"
    Set rights = ReadRights(connect, user)
    For Each text In rights
        Debug.Print "   " & text
    Next

    Debug.Print "3. Administration"
    If Allows(rights, kUsers) Then
        logon.UserManager connect
        Debug.Print "   user list closed"
    Else
        Debug.Print "   user list not allowed"
    End If
    If Allows(rights, kGroups) Then
        logon.ShowGroup connect
        Debug.Print "   group manager closed"
    Else
        Debug.Print "   group manager not allowed"
    End If
    Set rights = ReadRights(connect, user)      ' the forms may have changed them

    Debug.Print "4. Search"
    If Allows(rights, kCustomers) Then
        FindCustomers connect
    Else
        Debug.Print "   not allowed"
    End If

    Debug.Print "5. Message"
    If logon.Ask("B" & ChrW(&H1EA1) & "n " & ChrW(&H111) & ChrW(&HE3) & " xem xong ch" & ChrW(&H1B0) & "a?", _
                 VnDesk.vbYesNo, VnDesk.vbQuestion, "VnDesk") = VnDesk.vnAnswerYes Then
        Debug.Print "   yes"
    Else
        Debug.Print "   no"
    End If
    Exit Sub
Failed:
    Debug.Print "Error 0x" & Hex$(Err.Number) & ": " & Err.Description
End Sub

' The commands that the user's group may run, as keys: Rights("5"). Groups has one mask per row of Menu,
' from its fourth column on; bit i is the command at place i of that menu.
Private Function ReadRights(ByVal connect As String, ByVal user As Long) As Collection
    Dim allowed As New Collection
    Dim db As Object, group As Object, rows As Object
    Dim bars() As Long, masks() As Long, places() As Long
    Dim count As Long, i As Long

    Set ReadRights = allowed
    Set db = CreateObject("ADODB.Connection")   ' closes itself with its last reference
    db.Open connect
    Set group = db.Execute("SELECT * FROM Groups WHERE Code IN " & _
        "(SELECT IdGroup FROM [User] WHERE Code=" & user & ")")
    If group.EOF Then Exit Function             ' the group has been deleted
    ReDim bars(group.Fields.count), masks(group.Fields.count), places(group.Fields.count)
    Set rows = db.Execute("SELECT ID FROM Menu")
    Do Until rows.EOF Or count + 3 >= group.Fields.count
        bars(count) = rows.Fields("ID").Value
        If Not IsNull(group.Fields(count + 3).Value) Then masks(count) = group.Fields(count + 3).Value
        count = count + 1
        rows.MoveNext
    Loop
    Set rows = db.Execute("SELECT ID,IdMenuBar,[Desc] FROM SubMenu ORDER BY ID")
    Do Until rows.EOF
        For i = 0 To count - 1
            If bars(i) = rows.Fields("IdMenuBar").Value Then
                If places(i) < 31 Then          ' a menu has room for 31 commands
                    If masks(i) And CLng(2 ^ places(i)) Then
                        allowed.Add rows.Fields("ID").Value & " " & rows.Fields("Desc").Value, _
                            CStr(rows.Fields("ID").Value)
                    End If
                End If
                places(i) = places(i) + 1
            End If
        Next
        rows.MoveNext
    Loop
    db.Close
End Function

Private Function Allows(ByVal rights As Collection, ByVal id As Long) As Boolean
    Dim found As String
    On Error Resume Next                        ' a collection cannot be asked for a key
    found = rights(CStr(id))
    Allows = (Err.Number = 0)
End Function

Private Sub FindCustomers(ByVal connect As String)
    Dim search As New VnDesk.clsSearch
    Dim tools As New VnDesk.Varnok
    Dim db As Object, rows As Object
    Dim count As Long

    search.ActiveConnection = connect
    search.TableSearch = "KhachHang"
    search.Show 1, CLng(GetActiveWindow())      ' window handles fit into a Long
    If search.Result = "" Then
        Debug.Print "   cancelled"
        Exit Sub
    End If
    Debug.Print "   " & search.Result
    Set db = CreateObject("ADODB.Connection")
    db.Open connect
    Set rows = db.Execute("SELECT MaKH,[Name],CongNo FROM KhachHang WHERE " & search.Result & " ORDER BY MaKH")
    Do Until rows.EOF
        Debug.Print "   " & rows.Fields("MaKH").Value & " " & rows.Fields("Name").Value & " " & _
            tools.CvNStr(rows.Fields("CongNo").Value)
        count = count + 1
        rows.MoveNext
    Loop
    db.Close
    Debug.Print "   " & count & " rows"
    Dim words As New VnDesk.clsText
    Debug.Print "   " & words.NumberToWords(count)
End Sub
