@echo off
rem Nimmt, was anmelden.cmd getan hat, wieder weg.
setlocal
set regsvr32=%SystemRoot%\System32\regsvr32.exe
if "@BITS@"=="32" if exist "%SystemRoot%\SysWOW64\regsvr32.exe" set regsvr32=%SystemRoot%\SysWOW64\regsvr32.exe
"%regsvr32%" /s /u "%~dp0VEXNumKr.dll"
if errorlevel 1 (
  echo VEXNumKr.dll konnte nicht abgemeldet werden: regsvr32 endet mit %errorlevel%.
  exit /b 1
)
echo VEXNumKr.dll ist abgemeldet. Der Ordner wird nicht mehr gebraucht.
