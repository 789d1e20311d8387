@echo off
rem Makes the component known to this machine's hosts, or, where that is denied, to this user's.
rem   register.cmd        registers
rem   register.cmd /u     takes everything back
setlocal
set failed=0
rem A 32-bit command interpreter finds its own programs in System32.
set native=System32
if defined PROCESSOR_ARCHITEW6432 set native=Sysnative
if /i "%PROCESSOR_ARCHITECTURE%"=="x86" if not defined PROCESSOR_ARCHITEW6432 goto only32

"%SystemRoot%\%native%\regsvr32.exe" /s %1 "%~dp0x64\QORArApRpt.dll"
if errorlevel 1 set failed=1
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" "%SystemRoot%\SysWOW64\regsvr32.exe" /s %1 "%~dp0x86\QORArApRpt.dll"
if errorlevel 1 set failed=1
goto done

:only32
"%SystemRoot%\System32\regsvr32.exe" /s %1 "%~dp0x86\QORArApRpt.dll"
if errorlevel 1 set failed=1

:done
if %failed%==0 (echo done) else (echo failed)
exit /b %failed%
