@echo off
rem Meldet die VEXNumKr.dll dieses Ordners an: mit Verwaltungsrechten auf dem ganzen Rechner, ohne sie beim
rem eigenen Benutzer.
setlocal
set regsvr32=%SystemRoot%\System32\regsvr32.exe
if "@BITS@"=="32" if exist "%SystemRoot%\SysWOW64\regsvr32.exe" set regsvr32=%SystemRoot%\SysWOW64\regsvr32.exe
"%regsvr32%" /s "%~dp0VEXNumKr.dll"
if errorlevel 1 (
  echo VEXNumKr.dll konnte nicht angemeldet werden: regsvr32 endet mit %errorlevel%.
  exit /b 1
)
echo VEXNumKr.dll ist angemeldet. Der Ordner muss jetzt bleiben, wo er ist.
