// SPDX-License-Identifier: MIT
// A whole host in JScript: logon, rights, administration, search, message box.
//   cscript //nologo host.js CONNECTION-STRING
// Exit code 0 when somebody has logged on, 1 when nobody has, 2 after an error.

// Commands of this program, as the table SubMenu numbers them.
var kUsers = 2, kGroups = 3, kCustomers = 5;
var kYesNo = 4, kQuestion = 32, kYes = 6;

if (WScript.Arguments.length != 1) {
    WScript.Echo("usage: cscript //nologo host.js CONNECTION-STRING");
    WScript.Quit(2);
}
var exitCode = 2;
try {
    exitCode = run(WScript.Arguments(0));
} catch (error) {
    WScript.Echo("Error 0x" + (error.number >>> 0).toString(16).toUpperCase() + ": " + error.message);
}
WScript.Quit(exitCode);

function run(connect) {
    WScript.Echo("1. Logon");
    var logon = new ActiveXObject("VnDesk.clsLogon");
    logon.Settings = new ActiveXObject("VnDesk.clsSettings");
    logon.Settings.UseRecommended();
    var user = logon.ShowLogon(connect);
    if (user == 0) {
        WScript.Echo("   nobody has logged on");
        return 1;
    }
    WScript.Echo("   user " + user);

    WScript.Echo("2. Rights");
    var rights = readRights(connect, user);
    for (var id in rights)
        WScript.Echo("   " + id + " " + rights[id]);

    WScript.Echo("3. Administration");
    if (kUsers in rights) {
        logon.UserManager(connect);
        WScript.Echo("   user list closed");
    } else {
        WScript.Echo("   user list not allowed");
    }
    if (kGroups in rights) {
        logon.ShowGroup(connect);
        WScript.Echo("   group manager closed");
    } else {
        WScript.Echo("   group manager not allowed");
    }
    rights = readRights(connect, user); // the forms may have changed them

    WScript.Echo("4. Search");
    if (kCustomers in rights)
        findCustomers(connect);
    else
        WScript.Echo("   not allowed");

    WScript.Echo("5. Message");
    var text = "B\u1EA1n \u0111\xE3 xem xong ch\u01B0a?";
    WScript.Echo(logon.Ask(text, kYesNo, kQuestion, "VnDesk") == kYes ? "   yes" : "   no");
    return 0;
}

// Opens the host's database and closes it again, also after an error.
function withDatabase(connect, work) {
    var db = new ActiveXObject("ADODB.Connection");
    db.Open(connect);
    try {
        return work(db);
    } finally {
        db.Close();
    }
}

// The commands that the user's group may run, SubMenu.ID -> SubMenu.Desc. Groups has one mask per
// row of Menu, from its fourth column on; bit i is the command at place i of that menu.
function readRights(connect, user) {
    return withDatabase(connect, function (db) {
        var allowed = {}, masks = {}, places = {};
        var group = db.Execute("SELECT * FROM Groups WHERE Code IN " +
                               "(SELECT IdGroup FROM [User] WHERE Code=" + user + ")");
        if (group.EOF)
            return allowed; // the group has been deleted
        var rows = db.Execute("SELECT ID FROM Menu");
        for (var column = 3; !rows.EOF && column < group.Fields.Count; ++column, rows.MoveNext())
            masks[rows.Fields("ID").Value] = group.Fields(column).Value; // null grants nothing
        rows = db.Execute("SELECT ID,IdMenuBar,[Desc] FROM SubMenu ORDER BY ID");
        for (; !rows.EOF; rows.MoveNext()) {
            var bar = rows.Fields("IdMenuBar").Value;
            var place = places[bar] || 0; // a menu has room for 31 commands
            if (place < 31 && (masks[bar] >> place & 1))
                allowed[rows.Fields("ID").Value] = rows.Fields("Desc").Value;
            places[bar] = place + 1;
        }
        return allowed;
    });
}

function findCustomers(connect) {
    var tools = new ActiveXObject("VnDesk.Varnok");
    var condition = tools.FindShow(connect, "KhachHang");
    if (condition == "") {
        WScript.Echo("   cancelled");
        return;
    }
    WScript.Echo("   " + condition);
    withDatabase(connect, function (db) {
        var count = 0;
        var rows = db.Execute("SELECT MaKH,[Name],CongNo FROM KhachHang WHERE " + condition + " ORDER BY MaKH");
        for (; !rows.EOF; rows.MoveNext(), ++count)
            WScript.Echo("   " + rows.Fields("MaKH").Value + " " + rows.Fields("Name").Value + " " +
                         tools.CvNStr(rows.Fields("CongNo").Value));
        WScript.Echo("   " + count + " rows");
        WScript.Echo("   " + new ActiveXObject("VnDesk.clsText").NumberToWords(count));
    });
}
