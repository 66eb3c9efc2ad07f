@echo off
rem SPDX-License-Identifier: MIT
rem start.cmd [tour]: makes a sample database in the user's folder once and runs the VBScript sample with it, or the
rem tour that the setup program brings. Log on as Admin with password abc. The 32-bit script host is taken, because
rem Jet exists for 32-bit programs only. Wine has no Jet: its database comes ready made.
setlocal
set host=%SystemRoot%\SysWOW64\cscript.exe
if not exist "%host%" set host=%SystemRoot%\System32\cscript.exe
set database=%USERPROFILE%\vndesk-sample.mdb
if exist "%database%" goto run
if exist "%SystemRoot%\System32\winepath.exe" goto wine
"%host%" //nologo "%~dp0..\schema\load_jet.vbs" "%database%"
if errorlevel 1 goto end
goto run
:wine
copy "%~dp0..\schema\sample.db" "%database%"
if errorlevel 1 goto end
:run
if "%~1"=="tour" goto tour
"%host%" //nologo "%~dp0vbscript\host.vbs" "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=%database%;Jet OLEDB:Engine Type=5"
goto end
:tour
start "" "%~dp0..\x86\vntour.exe" --database "%database%"
goto :eof
:end
pause
