# SPDX-License-Identifier: MIT
# A whole host in PowerShell: logon, rights, administration, search, message box.
#   powershell -STA -NoProfile -ExecutionPolicy Bypass -File host.ps1 CONNECTION-STRING
# Exit code 0 when somebody has logged on, 1 when nobody has, 2 after an error.
param([Parameter(Mandatory = $true)] [string] $Connect)
Set-StrictMode -Version 2
$ErrorActionPreference = 'Stop'

# Commands of this program, as the table SubMenu numbers them.
$Users = 2; $Groups = 3; $Customers = 5
$YesNo = 4; $Question = 32; $Yes = 6

# All rows of a statement, each an array of its values.
function Read-Row([string] $Statement) {
    $database = New-Object -ComObject ADODB.Connection
    try {
        [void]$database.Open($Connect) # what a call hands back would be taken for a row
        $records = $database.Execute($Statement)
        while (-not $records.EOF) {
            $row = foreach ($i in 0..($records.Fields.Count - 1)) { $records.Fields.Item($i).Value }
            , @($row)
            [void]$records.MoveNext()
        }
        [void]$database.Close()
    }
    finally {
        [void][Runtime.InteropServices.Marshal]::FinalReleaseComObject($database)
    }
}

# The commands that the user's group may run, SubMenu.ID -> SubMenu.Desc. Groups has one mask per row of
# Menu, from its fourth column on; bit i is the command at place i of that menu.
function Get-Rights([int] $User) {
    $allowed = New-Object 'System.Collections.Generic.SortedDictionary[int,string]'
    $group = @(Read-Row "SELECT * FROM Groups WHERE Code IN (SELECT IdGroup FROM [User] WHERE Code=$User)")
    if ($group.Count -gt 0) { # else the group has been deleted
        $masks = @{}; $places = @{}; $column = 3
        foreach ($menu in @(Read-Row 'SELECT ID FROM Menu')) {
            if ($column -lt $group[0].Count -and $group[0][$column] -isnot [DBNull]) {
                $masks[[int]$menu[0]] = [int]$group[0][$column]
            }
            $column++
        }
        foreach ($command in @(Read-Row 'SELECT ID,IdMenuBar,[Desc] FROM SubMenu ORDER BY ID')) {
            $bar = [int]$command[1]
            $place = [int]$places[$bar] # a menu has room for 31 commands
            if ($place -lt 31 -and ([int]$masks[$bar] -band [int][Math]::Pow(2, $place))) {
                $allowed[[int]$command[0]] = [string]$command[2]
            }
            $places[$bar] = $place + 1
        }
    }
    , $allowed
}

function Find-Customer {
    $tools = New-Object -ComObject VnDesk.Varnok
    try {
        $condition = $tools.FindShow($Connect, 'KhachHang')
        if (-not $condition) {
            Write-Host '   cancelled'
            return
        }
        Write-Host "   $condition"
        $rows = @(Read-Row "SELECT MaKH,[Name],CongNo FROM KhachHang WHERE $condition ORDER BY MaKH")
        foreach ($row in $rows) {
            Write-Host "   $($row[0]) $($row[1]) $($tools.CvNStr($row[2]))"
        }
        Write-Host "   $($rows.Count) rows"
        Write-Host "   $((New-Object -ComObject VnDesk.clsText).NumberToWords($rows.Count))"
    }
    finally {
        [void][Runtime.InteropServices.Marshal]::FinalReleaseComObject($tools)
    }
}

$logon = $null
try {
    [Console]::OutputEncoding = [Text.Encoding]::UTF8
    if ([Threading.Thread]::CurrentThread.GetApartmentState() -ne 'STA') {
        throw 'The dialogs need a single-threaded apartment: start PowerShell with -STA.'
    }
    Write-Host '1. Logon'
    $logon = New-Object -ComObject VnDesk.clsLogon
    $logon.Settings = New-Object -ComObject VnDesk.clsSettings
    $logon.Settings.UseRecommended()
    $user = $logon.ShowLogon([ref]$Connect) # texts go by reference
    if ($user -eq 0) {
        Write-Host '   nobody has logged on'
        exit 1
    }
    Write-Host "   user $user"

    Write-Host '2. Rights'
    $rights = Get-Rights $user
    foreach ($command in $rights.GetEnumerator()) { Write-Host "   $($command.Key) $($command.Value)" }

    Write-Host '3. Administration'
    if ($rights.ContainsKey($Users)) {
        $logon.UserManager([ref]$Connect)
        Write-Host '   user list closed'
    } else { Write-Host '   user list not allowed' }
    if ($rights.ContainsKey($Groups)) {
        $logon.ShowGroup([ref]$Connect)
        Write-Host '   group manager closed'
    } else { Write-Host '   group manager not allowed' }
    $rights = Get-Rights $user # the forms may have changed them

    Write-Host '4. Search'
    if ($rights.ContainsKey($Customers)) { Find-Customer } else { Write-Host '   not allowed' }

    Write-Host '5. Message'
    $text = "B$([char]0x1EA1)n $([char]0x111)$([char]0xE3) xem xong ch$([char]0x1B0)a?"
    $pressed = $logon.Ask($text, $YesNo, $Question, 'VnDesk')
    if ($pressed -eq $Yes) { Write-Host '   yes' } else { Write-Host '   no' }
    exit 0
}
catch {
    $problem = $_.Exception.GetBaseException() # PowerShell wraps what COM objects tell
    [Console]::Error.WriteLine('Error 0x{0:X8}: {1}', $problem.HResult, $problem.Message)
    exit 2
}
finally {
    if ($logon) { [void][Runtime.InteropServices.Marshal]::FinalReleaseComObject($logon) }
}
