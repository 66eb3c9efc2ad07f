// SPDX-License-Identifier: MIT
// VnHost CONNECTION-STRING: a whole host in Delphi: logon, rights, administration, search, message box.
// Late bound, for Delphi 7 and later: nothing has to be imported.
// Exit code 0 when somebody has logged on, 1 when nobody has, 2 after an error.
program VnHost;

{$APPTYPE CONSOLE}

uses
  SysUtils, Variants, ActiveX, ComObj;

const
  // Commands of this program, as the table SubMenu numbers them.
  kUsers = 2;
  kGroups = 3;
  kCustomers = 5;
  kYesNo = 4;
  kQuestion = 32;
  kYes = 6;
  kMaxCommands = 31;

type
  // Names of the commands that the user's group may run, at the place of their SubMenu.ID.
  TRights = array of WideString;

function Allows(const Rights: TRights; Command: Integer): Boolean;
begin
  Result := (Command < Length(Rights)) and (Rights[Command] <> '');
end;

function OpenDatabase(const Connect: WideString): OleVariant;
begin
  Result := CreateOleObject('ADODB.Connection'); // closes itself with its last reference
  Result.Open(Connect);
end;

function NumberOf(const Value: OleVariant): Integer;
begin
  if VarIsNull(Value) then
    Result := 0
  else
    Result := Value;
end;

// Groups has one mask per row of Menu, from its fourth column on; bit i is the command at place i of
// that menu.
function ReadRights(const Connect: WideString; User: Integer): TRights;
var
  Database, Group, Rows: OleVariant;
  Bars, Masks, Places: array of Integer;
  Column, I, Id: Integer;
begin
  SetLength(Result, 0);
  Database := OpenDatabase(Connect);
  Group := Database.Execute('SELECT * FROM Groups WHERE Code IN ' +
    '(SELECT IdGroup FROM [User] WHERE Code=' + IntToStr(User) + ')');
  if Group.EOF then
    Exit; // the group has been deleted
  Rows := Database.Execute('SELECT ID FROM Menu');
  Column := 3;
  while not Rows.EOF and (Column < Group.Fields.Count) do
  begin
    SetLength(Bars, Length(Bars) + 1);
    SetLength(Masks, Length(Bars));
    SetLength(Places, Length(Bars));
    Bars[High(Bars)] := NumberOf(Rows.Fields.Item[0].Value);
    Masks[High(Bars)] := NumberOf(Group.Fields.Item[Column].Value);
    Inc(Column);
    Rows.MoveNext;
  end;
  Rows := Database.Execute('SELECT ID,IdMenuBar,[Desc] FROM SubMenu ORDER BY ID');
  while not Rows.EOF do
  begin
    Id := NumberOf(Rows.Fields.Item[0].Value);
    for I := 0 to High(Bars) do
      if Bars[I] = NumberOf(Rows.Fields.Item[1].Value) then
      begin
        if (Places[I] < kMaxCommands) and (Masks[I] and (1 shl Places[I]) <> 0) then
        begin
          if Id >= Length(Result) then
            SetLength(Result, Id + 1);
          Result[Id] := Rows.Fields.Item[2].Value;
        end;
        Inc(Places[I]);
      end;
    Rows.MoveNext;
  end;
end;

procedure FindCustomers(const Connect: WideString);
var
  Tools, Words, Database, Rows: OleVariant;
  Condition: WideString;
  Count: Integer;
begin
  Words := CreateOleObject('VnDesk.clsText');
  Tools := CreateOleObject('VnDesk.Varnok');
  Condition := Tools.FindShow(Connect, 'KhachHang');
  if Condition = '' then
  begin
    WriteLn('   cancelled');
    Exit;
  end;
  WriteLn('   ', Condition);
  Database := OpenDatabase(Connect);
  Rows := Database.Execute('SELECT MaKH,[Name],CongNo FROM KhachHang WHERE ' + Condition + ' ORDER BY MaKH');
  Count := 0;
  while not Rows.EOF do
  begin
    WriteLn('   ', VarToWideStr(Rows.Fields.Item[0].Value), ' ', VarToWideStr(Rows.Fields.Item[1].Value), ' ',
      VarToWideStr(Tools.CvNStr(Rows.Fields.Item[2].Value)));
    Inc(Count);
    Rows.MoveNext;
  end;
  WriteLn('   ', Count, ' rows');
  WriteLn('   ', VarToWideStr(Words.NumberToWords(Count)));
end;

function Run(Connect: WideString): Integer;
var
  Logon: OleVariant;
  Rights: TRights;
  Text: WideString;
  Pressed: Integer;
  User, I: Integer;
begin
  WriteLn('1. Logon');
  Logon := CreateOleObject('VnDesk.clsLogon');
  Logon.Settings := CreateOleObject('VnDesk.clsSettings');
  Logon.Settings.UseRecommended;
  User := Logon.ShowLogon(Connect);
  if User = 0 then
  begin
    WriteLn('   nobody has logged on');
    Result := 1;
    Exit;
  end;
  WriteLn('   user ', User);

  WriteLn('2. Rights');
  Rights := ReadRights(Connect, User);
  for I := 0 to High(Rights) do
    if Allows(Rights, I) then
      WriteLn('   ', I, ' ', Rights[I]);

  WriteLn('3. Administration');
  if Allows(Rights, kUsers) then
  begin
    Logon.UserManager(Connect);
    WriteLn('   user list closed');
  end
  else
    WriteLn('   user list not allowed');
  if Allows(Rights, kGroups) then
  begin
    Logon.ShowGroup(Connect);
    WriteLn('   group manager closed');
  end
  else
    WriteLn('   group manager not allowed');
  Rights := ReadRights(Connect, User); // the forms may have changed them

  WriteLn('4. Search');
  if Allows(Rights, kCustomers) then
    FindCustomers(Connect)
  else
    WriteLn('   not allowed');

  WriteLn('5. Message');
  Text := 'B'#$1EA1'n '#$0111#$00E3' xem xong ch'#$01B0'a?';
  Pressed := Logon.Ask(Text, kYesNo, kQuestion, 'VnDesk');
  if Pressed = kYes then
    WriteLn('   yes')
  else
    WriteLn('   no');
  Result := 0;
end;

begin
  if ParamCount <> 1 then
  begin
    WriteLn('usage: VnHost CONNECTION-STRING');
    Halt(2);
  end;
  // The dialogs need a single-threaded apartment.
  OleCheck(CoInitializeEx(nil, COINIT_APARTMENTTHREADED));
  ExitCode := 2;
  try
    ExitCode := Run(ParamStr(1)); // all objects are released when it returns
  except
    on E: EOleSysError do
      WriteLn(ErrOutput, Format('Error 0x%.8x: %s', [E.ErrorCode, E.Message]));
    on E: Exception do
      WriteLn(ErrOutput, 'Error: ', E.Message);
  end;
  CoUninitialize;
end.
