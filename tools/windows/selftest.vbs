' Selbsttest von VEXNumKr.dll auf einem echten Windows mit der echten Datenbank des Hosts.
'
'   cscript //nologo selftest.vbs /verbindung:"..." [/anwendung:1] [/benutzer:Name] [/dialog]
'
' Nur auf einer KOPIE der Daten ausfuehren. Was der Test schreibt, nimmt er in derselben Transaktion
' zurueck. Er benutzt jedes Element von ADO so, wie die Komponente es benutzt, und druckt, was anders
' ist, als sie es braucht. Mit /dialog oeffnet er zuletzt den Dialog; dort bitte "Abbrechen" waehlen.
'
' Fuer einen 32-Bit-Host ist %SystemRoot%\SysWOW64\cscript.exe zu nehmen.
' Ergebnis: 0, wenn nichts abweicht, sonst die Zahl der Abweichungen; 255 bei falschem Aufruf.
Option Explicit

Const isolated = 1048576
Const useServer = 2
Const useClient = 3
Const openForwardOnly = 0
Const openKeyset = 1
Const lockReadOnly = 1
Const lockOptimistic = 3
Const commandText = 1
Const unspecified = -1
Const noRange = "SELECT NSchl FROM Nummernkreise WHERE Buchungskreis=-99 AND NSchl='VXTEST'"

Dim connectionString, application, user, withDialog
Dim host, work, command, deviations, checks
deviations = 0
checks = 0

Main

Sub Main
  ReadArguments
  WScript.Echo "Selbsttest VEXNumKr, " & Now
  OpenHost
  CheckSecondConnection
  CheckCommand
  CheckReading
  CheckTransactions
  CheckFailures
  CheckSpecialRanges
  CheckHostComponents
  CheckComponent
  If withDialog Then CheckDialog
  WScript.Echo checks & " Pruefungen, " & deviations & " Abweichungen"
  WScript.Echo "Ende des Selbsttests"
  WScript.Quit deviations
End Sub

Sub ReadArguments
  Dim named
  Set named = WScript.Arguments.Named
  If Not named.Exists("verbindung") Then
    WScript.Echo "Aufruf: cscript //nologo selftest.vbs /verbindung:""..."" " & _
                 "[/anwendung:1] [/benutzer:Name] [/dialog]"
    WScript.Quit 255
  End If
  connectionString = named.Item("verbindung")
  application = 1
  If named.Exists("anwendung") Then application = CLng(named.Item("anwendung"))
  user = "Selbsttest"
  If named.Exists("benutzer") Then user = named.Item("benutzer")
  withDialog = named.Exists("dialog")
End Sub

' --- Ergebnisse

Sub Good(what)
  checks = checks + 1
  WScript.Echo "  gut         " & what
End Sub

Sub Deviates(what, found)
  checks = checks + 1
  deviations = deviations + 1
  WScript.Echo "  ABWEICHUNG  " & what & ": " & found
End Sub

' Prueft, ob der letzte Schritt ohne Fehler blieb; nur unter "On Error Resume Next" aufzurufen.
Function Succeeded(what)
  Dim number, description
  number = Err.Number
  description = Err.Description
  Err.Clear
  Succeeded = (number = 0)
  If Succeeded Then
    Good what
  Else
    Deviates what, "Fehler " & number & ", " & description
  End If
End Function

Sub Expect(what, condition, found)
  If condition Then
    Good what
  Else
    Deviates what, found
  End If
End Sub

Sub Section(name)
  WScript.Echo name
End Sub

' --- Die Verbindung des Hosts

Sub OpenHost
  Section "Verbindung des Hosts"
  On Error Resume Next
  Set host = CreateObject("ADODB.Connection")
  host.ConnectionString = connectionString
  host.Open
  If Not Succeeded("Connection.Open") Then WScript.Quit deviations
  host.IsolationLevel = isolated
  If Succeeded("Connection.IsolationLevel = 1048576 auf der offenen Verbindung") Then
    Expect "Connection.IsolationLevel gelesen", host.IsolationLevel = isolated, host.IsolationLevel
  End If
End Sub

' Die Komponente oeffnet eine zweite Verbindung mit der Verbindungszeichenfolge der ersten. Anbieter,
' die das Kennwort daraus entfernen ("Persist Security Info=False"), lassen das nicht zu.
Sub CheckSecondConnection
  Section "Zweite Verbindung mit der Zeichenfolge der ersten"
  On Error Resume Next
  Set work = CreateObject("ADODB.Connection")
  work.CommandTimeout = 0
  work.ConnectionString = host.ConnectionString
  work.ConnectionTimeout = 0
  work.CursorLocation = useServer
  work.IsolationLevel = isolated
  Succeeded "CommandTimeout, ConnectionTimeout, CursorLocation, IsolationLevel vor dem Oeffnen"
  work.Open "", "", "", unspecified
  If Succeeded("Open mit leerem Benutzer und Kennwort") Then
    work.Close
    Succeeded "Close"
  End If
  Set work = Nothing
End Sub

' --- Befehle

Function Count(statement)
  Dim rows
  Set rows = host.Execute(statement)
  Count = CLng(rows.Fields("Anzahl").Value)
  rows.Close
End Function

Sub CheckCommand
  Dim affected, rows
  Section "Befehl mit Zahl der betroffenen Saetze"
  On Error Resume Next
  Set command = CreateObject("ADODB.Command")
  Set command.ActiveConnection = host
  command.CommandType = commandText
  command.CommandTimeout = 0
  Succeeded "ActiveConnection, CommandType, CommandTimeout"
  command.CommandText = noRange
  affected = 7
  Set rows = command.Execute(affected)
  If Succeeded("Execute einer Abfrage") Then
    Expect "Abfrage ohne Treffer: EOF", rows.EOF, rows.EOF
    ' Jede andere Zahl gilt der Komponente als Treffer: dann waeren alle Zuordnungen aktiv.
    Expect "Abfrage ohne Treffer: 0 betroffene Saetze", affected = 0, affected
    rows.Close
  End If
  command.CommandText = "SELECT strUserName_PK FROM tblUser"
  Set rows = command.Execute(affected)
  If Succeeded("Execute einer Abfrage mit Treffern (tblUser)") Then
    Expect "Abfrage mit Treffern: nicht 0 betroffene Saetze", affected <> 0, affected
    rows.Close
  End If
End Sub

' --- Lesen

Sub CheckReading
  Dim rows, number, text, flag
  Section "Datensatzgruppen"
  On Error Resume Next
  Set rows = CreateObject("ADODB.Recordset")
  rows.CursorLocation = useClient
  rows.Open "SELECT strUserName_PK FROM tblUser ORDER BY strUserName_PK", host, openForwardOnly, _
            lockReadOnly, unspecified
  If Succeeded("Open: tblUser, auf der Seite des Clients, vorwaerts, nur lesen") Then
    Do Until rows.EOF
      text = CStr(rows.Fields("STRUSERNAME_PK").Value)
      rows.MoveNext
      If Err.Number <> 0 Then Exit Do
    Loop
    Succeeded "EOF, MoveNext und Fields ohne Ruecksicht auf Gross und Klein"
    text = rows.Fields("strUserName_PK").Value
    Expect "Lesen hinter dem letzten Satz: Fehler 3021", ShortNumber(Err.Number) = 3021, Err.Number
    Err.Clear
    rows.Close
  End If
  Set rows = host.Execute("SELECT * FROM Nummernkreise")
  If Not Succeeded("Execute: Nummernkreise") Then Exit Sub
  If rows.EOF Then
    WScript.Echo "  (Nummernkreise ist leer: Typen der Felder nicht geprueft)"
    Exit Sub
  End If
  For Each number In Array("Buchungskreis", "StartWert", "AktuellerWert", "EndWert", "SortierIndex")
    CheckWhole rows.Fields(number).Value, number
  Next
  For Each text In Array("NSchl", "NBezeichnung", "IstNSchlVon", "Maske")
    CheckText rows.Fields(text).Value, text
  Next
  flag = rows.Fields("Aktiviert").Value
  Expect "Aktiviert ist Wahrheitswert, 0, -1 oder NULL", IsFlag(flag), TypeName(flag) & " " & flag
  rows.Close
  Err.Clear
End Sub

Function ShortNumber(number)
  ShortNumber = number And &HFFFF&
End Function

Sub CheckWhole(value, name)
  On Error Resume Next
  If IsNull(value) Then
    Good name & " ist NULL"
  Else
    Expect name & " ist eine ganze Zahl (" & TypeName(value) & ")", CDbl(value) = CLng(value), value
  End If
End Sub

Sub CheckText(value, name)
  On Error Resume Next
  If IsNull(value) Then
    Good name & " ist NULL"
  Else
    Expect name & " ist Text ohne Leerzeichen am Ende", _
           VarType(value) = vbString And value = RTrim(value), TypeName(value) & " '" & value & "'"
  End If
End Sub

Function IsFlag(value)
  IsFlag = True
  If IsNull(value) Then Exit Function
  If VarType(value) = vbBoolean Then Exit Function
  IsFlag = (CLng(value) = 0 Or CLng(value) = -1)
End Function

' --- Schreiben: alles in Transaktionen, die zurueckgenommen werden

Sub InsertTestRange
  Dim affected
  command.CommandText = "INSERT INTO Nummernkreise (Buchungskreis, NSchl, NBezeichnung, " & _
    "StartWert, AktuellerWert, EndWert, Aktiviert, SortierIndex, IstNSchlVon, Maske) VALUES " & _
    "(-99, 'VXTEST', 'Selbsttest', 1, 0, 9, -1, 0, '', '')"
  affected = 7
  command.Execute affected
  If Err.Number = 0 And affected <> 1 Then Deviates "INSERT: 1 betroffener Satz", affected
End Sub

Function TestRanges
  TestRanges = Count("SELECT COUNT(*) AS Anzahl FROM Nummernkreise WHERE Buchungskreis=-99")
End Function

Sub CheckTransactions
  Section "Transaktionen"
  On Error Resume Next
  host.BeginTrans
  If Not Succeeded("BeginTrans") Then Exit Sub
  InsertTestRange
  Succeeded "INSERT in Nummernkreise mit Aktiviert als -1"
  Expect "In der Transaktion ist der Satz zu sehen", TestRanges = 1, TestRanges
  host.RollbackTrans
  Succeeded "RollbackTrans"
  Expect "Danach ist er fort", TestRanges = 0, TestRanges
  host.RollbackTrans
  Expect "RollbackTrans ohne Transaktion ist ein Fehler", Err.Number <> 0, "kein Fehler"
  Err.Clear
End Sub

Sub CheckFailures
  Dim affected
  Section "Fehler in einer Transaktion"
  On Error Resume Next
  host.BeginTrans
  InsertTestRange
  Err.Clear
  InsertTestRange
  Expect "Zweiter INSERT mit demselben Schluessel ist ein Fehler", Err.Number <> 0, _
         "kein Fehler: Nummernkreise hat keinen Schluessel ueber Buchungskreis und NSchl"
  Expect "Der Fehler hat einen Text", Len(Err.Description) > 0, "keiner"
  WScript.Echo "              Fehler " & Err.Number & ": " & Err.Description
  Err.Clear
  ' Darauf verlaesst sich das Speichern: wo INSERT nicht geht, folgt UPDATE.
  command.CommandText = _
    "UPDATE Nummernkreise SET EndWert=8 WHERE Buchungskreis=-99 AND NSchl='VXTEST'"
  affected = 7
  command.Execute affected
  If Succeeded("UPDATE nach dem gescheiterten INSERT, in derselben Transaktion") Then
    Expect "UPDATE: betroffene Saetze gezaehlt", affected >= 1, affected
  End If
  host.RollbackTrans
  Succeeded "RollbackTrans"
  Expect "Nichts ist geblieben", TestRanges = 0, TestRanges
  Err.Clear
End Sub

' Sonderkreise werden Satz fuer Satz ueber die Datensatzgruppe geschrieben.
Sub CheckSpecialRanges
  Dim rows, flag
  Section "Sonderkreise, Satz fuer Satz geschrieben"
  On Error Resume Next
  host.BeginTrans
  Set rows = CreateObject("ADODB.Recordset")
  rows.CursorLocation = useClient
  rows.Open "SELECT U_NSchl, NSchl, NBezeichnung, Aktiviert FROM Nummernkreis_Sonderkreise " & _
            "WHERE Herkunft='" & Origin & "' ORDER BY NBezeichnung", host, openKeyset, _
            lockOptimistic, unspecified
  If Succeeded("Open: auf der Seite des Clients, Keyset, optimistisch") Then
    If rows.EOF Then
      WScript.Echo "  (keine Sonderkreise der Herkunft '" & Origin & "': Update nicht geprueft)"
    Else
      rows.MoveFirst
      flag = rows.Fields("Aktiviert").Value
      rows.Fields("Aktiviert").Value = (IsNull(flag) Or Not CBool(flag))
      rows.Update
      Succeeded "Fields.Value = ..., Update"
    End If
    rows.Close
    Succeeded "Close"
  End If
  host.RollbackTrans
  Err.Clear
End Sub

Function Origin
  Origin = ""
  If application = 1 Then Origin = "ORB"
  If application = 2 Then Origin = "ORC"
End Function

' --- Komponenten

Sub CheckHostComponents
  Dim name, component
  Section "Komponenten des Hosts"
  On Error Resume Next
  For Each name In Array("vxtComDlg.WWSDialog", "VEXSetting.VXSettings")
    Set component = Nothing
    Set component = CreateObject(name)
    Succeeded "CreateObject(""" & name & """)"
  Next
End Sub

Sub CheckComponent
  Dim component, result
  Section "VEXNumKr"
  On Error Resume Next
  Set component = CreateObject("VEXNummernkreise.VXNummernkreise")
  If Not Succeeded("CreateObject(""VEXNummernkreise.VXNummernkreise"")") Then Exit Sub
  result = component.Init(host, application, user)
  If Succeeded("Init ohne Datum") Then
    Expect "Init: Boolean, True", VarType(result) = vbBoolean And result, TypeName(result) & " " & result
  End If
  result = component.Init(host, application, user, "31.12.2025")
  If Succeeded("Init mit Datum") Then
    Expect "Init: Boolean, True", VarType(result) = vbBoolean And result, TypeName(result) & " " & result
  End If
  Set component = Nothing
  Succeeded "Freigeben"
  Count "SELECT COUNT(*) AS Anzahl FROM tblUser"
  Succeeded "Die Verbindung des Hosts ist noch offen"
End Sub

Sub CheckDialog
  Dim component, before, after
  Section "Dialog (bitte ""Abbrechen"" waehlen)"
  On Error Resume Next
  before = Fingerprint
  Set component = CreateObject("VEXNummernkreise.VXNummernkreise")
  component.Init host, application, user
  component.ShowDialog
  Succeeded "ShowDialog"
  Set component = Nothing
  after = Fingerprint
  Expect "Nach ""Abbrechen"" ist alles wie zuvor", before = after, before & " / " & after
End Sub

Function Fingerprint
  Dim table
  Fingerprint = ""
  For Each table In Array("Nummernkreise", "Nummernkreis_Buchungskreise", _
                          "Nummernkreis_Zuordnung", "Nummernkreis_Sonderkreise")
    Fingerprint = Fingerprint & table & " " & Count("SELECT COUNT(*) AS Anzahl FROM " & table) & "; "
  Next
End Function
