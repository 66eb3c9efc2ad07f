Attribute VB_Name = "modRights"
' SPDX-License-Identifier: MIT
' Which commands the logged-on user may run, read from the host's own database. Take this file over as it is.
' ADO is used by name, so that no version of its type library has to be referenced.
Option Explicit

' The commands that the user's group may run, as keys: Rights("5"). Groups has one mask per row of Menu,
' from its fourth column on; bit i is the command at place i of that menu.
Public Function ReadRights(ByVal connect As String, ByVal user As Long) As Collection
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

Public Function Allows(ByVal rights As Collection, ByVal id As Long) As Boolean
    Dim found As String
    On Error Resume Next                        ' a collection cannot be asked for a key
    found = rights(CStr(id))
    Allows = (Err.Number = 0)
End Function
