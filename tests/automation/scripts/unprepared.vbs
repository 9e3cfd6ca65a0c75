' A host that shows the dialog without having handed over anything, and one that hands over nonsense.
Option Explicit
Dim numbers, nothingAtAll
Set numbers = CreateObject("VEXNummernkreise.VXNummernkreise")
numbers.ShowDialog
WScript.Echo "shown"
Set nothingAtAll = Nothing
WScript.Echo "Init: " & numbers.Init(nothingAtAll, 2, "Anna")
WScript.Echo "end"
WScript.Quit
