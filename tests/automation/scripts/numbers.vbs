' A host: connects, creates the component by its name, starts it and shows its dialog.
'
'   numbers.vbs CONNECTION APPLICATION USER [DATE]
Option Explicit
Dim connection, numbers, isReady

Set connection = CreateObject("ADODB.Connection")
connection.ConnectionString = WScript.Arguments(0)
connection.Open
Set numbers = CreateObject("VEXNummernkreise.VXNummernkreise")
If WScript.Arguments.Count = 4 Then
  isReady = numbers.Init(connection, CLng(WScript.Arguments(1)), WScript.Arguments(2), WScript.Arguments(3))
Else
  isReady = numbers.Init(connection, CLng(WScript.Arguments(1)), WScript.Arguments(2))
End If
WScript.Echo "Init: " & TypeName(isReady) & " " & isReady
If isReady Then
  numbers.ShowDialog
  WScript.Echo "shown"
End If
Set numbers = Nothing
connection.Close
WScript.Echo "end"
WScript.Quit
