' A host that shows the dialog without having handed over anything, and one that hands over nonsense.
Option Explicit

' Objects of scripts tell their members by another interface than compiled ones.
Class ScriptConnection
  Public Property Get ConnectionString
    WScript.Echo "asked for the connection string"
    ConnectionString = "Driver=SQLite3"
  End Property
End Class

Dim numbers, nothingAtAll
Set numbers = CreateObject("VEXNummernkreise.VXNummernkreise")
numbers.ShowDialog
WScript.Echo "shown"
Set nothingAtAll = Nothing
WScript.Echo "Init: " & numbers.Init(nothingAtAll, 2, "Anna")
WScript.Echo "Init: " & numbers.Init(New ScriptConnection, 2, "Anna")
WScript.Echo "end"
WScript.Quit
