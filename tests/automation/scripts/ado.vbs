' What a script sees of the ADO classes that stand in for the real ones.
Option Explicit
Dim connection, rows, command, affected

Sub Report(what)
  WScript.Echo what & ": " & Err.Number & ", " & Err.Description & ", " & Err.Source
  Err.Clear
End Sub

Set connection = CreateObject("ADODB.Connection")
WScript.Echo "defaults " & connection.CommandTimeout & " " & connection.ConnectionTimeout & " " & _
  connection.CursorLocation & " " & connection.IsolationLevel
connection.ConnectionString = WScript.Arguments(0)
connection.CommandTimeout = 0
connection.ConnectionTimeout = 0
connection.CursorLocation = 2
connection.IsolationLevel = 1048576
connection.Open "", "", "", -1
WScript.Echo "open " & (connection.ConnectionString = WScript.Arguments(0)) & " " & _
  connection.IsolationLevel

Set rows = CreateObject("ADODB.Recordset")
rows.CursorLocation = 3
rows.Open "SELECT * FROM Nummernkreise WHERE NSchl='AN' ORDER BY Buchungskreis", connection, 0, 1, -1
Do Until rows.EOF
  WScript.Echo TypeName(rows.Fields("StartWert").Value) & " " & rows.Fields("startwert") & " " & _
    TypeName(rows.Fields("NBezeichnung").Value) & " " & TypeName(rows.Fields("Maske").Value) & " " & _
    TypeName(rows.Fields("Aktiviert").Value) & " " & rows.Fields("Aktiviert").Value
  rows.MoveNext
Loop
rows.MoveFirst
WScript.Echo "first " & rows.Fields.Item("StartWert").Value
rows.Close

connection.BeginTrans
connection.Execute "UPDATE Nummernkreise SET AktuellerWert=7 WHERE NSchl='RE'", affected
WScript.Echo "changed " & affected
connection.RollbackTrans
connection.BeginTrans
Set command = CreateObject("ADODB.Command")
Set command.ActiveConnection = connection
command.CommandType = 1
command.CommandTimeout = 0
command.CommandText = "UPDATE Nummernkreise SET AktuellerWert=8 WHERE Buchungskreis=0"
command.Execute affected
WScript.Echo "changed " & affected
connection.CommitTrans
command.CommandText = "SELECT strUserName_PK FROM tblUser ORDER BY strUserName_PK"
Set rows = command.Execute(affected)
WScript.Echo "found " & affected & ", first " & rows.Fields("strUserName_PK").Value

Set rows = CreateObject("ADODB.Recordset")
rows.Open "SELECT * FROM Nummernkreise WHERE NSchl='RE' AND Buchungskreis=2", connection, 1, 3, -1
rows.Fields("NBezeichnung").Value = "Proforma"
rows.Fields("Aktiviert").Value = True
rows.Fields("Maske").Value = Null
rows.Update
rows.MoveNext

On Error Resume Next
rows.MoveNext
Report "behind the last row"
WScript.Echo rows.Fields("Maske").Value
Report "no row"
rows.MoveFirst
WScript.Echo rows.Fields("nix").Value
Report "no such column"
rows.Close
rows.MoveFirst
Report "closed"
connection.Execute "SELECT * FROM nix"
Report "no such table"
connection.Execute "SELEKT"
Report "no statement"
connection.Execute "INSERT INTO tblUser VALUES ('Max')"
Report "twice"
connection.BeginTrans
connection.BeginTrans
Report "nested"
connection.RollbackTrans
connection.CommitTrans
Report "no transaction"
connection.Nix
Report "no such member"
connection.BeginTrans = 1
Report "method set"
connection.IsolationLevel = "viel"
Report "no number"
connection.Close
connection.Execute "SELECT 1"
Report "connection closed"
WScript.Echo "end"
WScript.Quit
