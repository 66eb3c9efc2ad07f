// SPDX-License-Identifier: MIT
// VnHost CONNECTION-STRING: a whole host in C#: logon, rights, administration, search, message box.
// Late bound (dynamic): it needs no interop assembly and compiles for .NET Framework 4.8 and for .NET 5 or later.
// Exit code 0 when somebody has logged on, 1 when nobody has, 2 after an error.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Text;

static class Program
{
    // Commands of this program, as the table SubMenu numbers them.
    const int Users = 2, Groups = 3, Customers = 5;
    const int YesNo = 4, Question = 32, Yes = 6;

    [STAThread] // the dialogs need a single-threaded apartment
    static int Main(string[] args)
    {
        if (args.Length != 1)
        {
            Console.Error.WriteLine("usage: VnHost CONNECTION-STRING");
            return 2;
        }
        Console.OutputEncoding = Encoding.UTF8;
        try
        {
            return Run(args[0]);
        }
        catch (Exception error) // COMException, or a value that is not of its column's type
        {
            Console.Error.WriteLine("Error 0x{0:X8}: {1}", Marshal.GetHRForException(error), error.Message);
            return 2;
        }
    }

    static int Run(string connect)
    {
        Console.WriteLine("1. Logon");
        using (var settings = new ComObject("VnDesk.clsSettings"))
        using (var logon = new ComObject("VnDesk.clsLogon"))
        {
            settings.Value.UseRecommended();
            logon.Value.Settings = settings.Value;
            logon.Value.MaxTries = 5;
            int user = logon.Value.ShowLogon(ref connect); // texts go by reference
            if (user == 0)
            {
                Console.WriteLine("   nobody has logged on");
                return 1;
            }
            Console.WriteLine("   user " + user);

            Console.WriteLine("2. Rights");
            var rights = ReadRights(connect, user);
            foreach (var command in rights)
                Console.WriteLine("   " + command.Key + " " + command.Value);

            Console.WriteLine("3. Administration");
            if (rights.ContainsKey(Users))
                logon.Value.UserManager(ref connect);
            Console.WriteLine(rights.ContainsKey(Users) ? "   user list closed" : "   user list not allowed");
            if (rights.ContainsKey(Groups))
                logon.Value.ShowGroup(ref connect);
            Console.WriteLine(rights.ContainsKey(Groups) ? "   group manager closed" : "   group manager not allowed");
            rights = ReadRights(connect, user); // the forms may have changed them

            Console.WriteLine("4. Search");
            if (rights.ContainsKey(Customers))
                FindCustomers(connect);
            else
                Console.WriteLine("   not allowed");

            Console.WriteLine("5. Message");
            int pressed = logon.Value.Ask("B\u1EA1n \u0111\u00E3 xem xong ch\u01B0a?", YesNo, Question, "VnDesk");
            Console.WriteLine(pressed == Yes ? "   yes" : "   no");
        }
        return 0;
    }

    // The commands that the user's group may run, SubMenu.ID -> SubMenu.Desc. Groups has one mask per
    // row of Menu, from its fourth column on; bit i is the command at place i of that menu.
    static SortedDictionary<int, string> ReadRights(string connect, int user)
    {
        var allowed = new SortedDictionary<int, string>();
        var groups = Read(connect, "SELECT * FROM Groups WHERE Code IN " +
                                   "(SELECT IdGroup FROM [User] WHERE Code=" + user + ")");
        if (groups.Count == 0)
            return allowed; // the group has been deleted
        var masks = new Dictionary<int, int>();
        int column = 3;
        foreach (var menu in Read(connect, "SELECT ID FROM Menu"))
        {
            if (column < groups[0].Length && !(groups[0][column] is DBNull))
                masks[Convert.ToInt32(menu[0])] = Convert.ToInt32(groups[0][column]);
            ++column;
        }
        var places = new Dictionary<int, int>();
        foreach (var command in Read(connect, "SELECT ID,IdMenuBar,[Desc] FROM SubMenu ORDER BY ID"))
        {
            int bar = Convert.ToInt32(command[1]), place, mask;
            places.TryGetValue(bar, out place);
            places[bar] = place + 1;
            if (place < 31 && masks.TryGetValue(bar, out mask) && (mask >> place & 1) != 0)
                allowed[Convert.ToInt32(command[0])] = Convert.ToString(command[2]);
        }
        return allowed;
    }

    static void FindCustomers(string connect)
    {
        using (var search = new ComObject("VnDesk.clsSearch"))
        using (var tools = new ComObject("VnDesk.Varnok"))
        {
            search.Value.ActiveConnection = connect;
            search.Value.TableSearch = "KhachHang";
            search.Value.Show(1);
            string condition = search.Value.Result;
            if (string.IsNullOrEmpty(condition))
            {
                Console.WriteLine("   cancelled");
                return;
            }
            Console.WriteLine("   " + condition);
            List<object[]> rows;
            using (var command = new ComObject(search.Value.CreateCommand("SELECT MaKH,[Name],CongNo FROM KhachHang")))
            {
                command.Value.CommandText += " ORDER BY MaKH";
                rows = AllRows(command.Value.Execute());
            }
            foreach (var row in rows)
                Console.WriteLine("   " + row[0] + " " + row[1] + " " + tools.Value.CvNStr(row[2]));
            Console.WriteLine("   " + rows.Count + " rows");
            using (var text = new ComObject("VnDesk.clsText"))
                Console.WriteLine("   " + text.Value.NumberToWords(rows.Count));
        }
    }

    // All rows of a statement, read with ADO as the library itself reads them.
    static List<object[]> Read(string connect, string statement)
    {
        using (var database = new ComObject("ADODB.Connection"))
        {
            database.Value.Open(connect);
            var rows = AllRows(database.Value.Execute(statement));
            database.Value.Close();
            return rows;
        }
    }

    static List<object[]> AllRows(object recordset)
    {
        var rows = new List<object[]>();
        using (var records = new ComObject(recordset))
        {
            if (!records.Value.EOF) // GetRows refuses to give nothing
            {
                object[,] table = records.Value.GetRows(); // columns, rows
                for (int row = 0; row < table.GetLength(1); ++row)
                {
                    rows.Add(new object[table.GetLength(0)]);
                    for (int i = 0; i < table.GetLength(0); ++i)
                        rows[row][i] = table[i, row];
                }
            }
        }
        return rows;
    }
}

// Releases a COM object at the end of a using block, not when the garbage collector comes.
sealed class ComObject : IDisposable
{
    public readonly dynamic Value;

    public ComObject(string progId) : this(Activator.CreateInstance(Type.GetTypeFromProgID(progId, true))) { }
    public ComObject(object value) { Value = value; }
    public void Dispose() { Marshal.FinalReleaseComObject(Value); }
}
