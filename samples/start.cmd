@echo off
rem SPDX-License-Identifier: MIT
rem start.cmd: makes a sample database in the user's folder once and runs the VBScript sample with it. Log on as
rem Admin with password abc. The 32-bit script host is taken, because Jet exists for 32-bit programs only.
setlocal
set host=%SystemRoot%\SysWOW64\cscript.exe
if not exist "%host%" set host=%SystemRoot%\System32\cscript.exe
set database=%USERPROFILE%\vndesk-sample.mdb
if exist "%database%" goto run
"%host%" //nologo "%~dp0..\schema\load_jet.vbs" "%database%"
if errorlevel 1 goto end
:run
"%host%" //nologo "%~dp0vbscript\host.vbs" "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=%database%;Jet OLEDB:Engine Type=5"
:end
pause
