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
Dim host, work, command, deviations, checks, canWrite
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
  CheckSaving
  CheckReadingBesideTransaction
  CheckSpecialRanges
  CheckHostComponents
  CheckComponent
  If withDialog Then CheckDialog
  WScript.Echo checks & " Pruefungen, " & deviations & " Abweichungen"
  WScript.Echo "Ende des Selbsttests"
  WScript.Quit deviations
End Sub

Sub ReadArguments
  Dim i, argument, name, value, colon
  connectionString = ""
  application = 1
  user = "Selbsttest"
  withDialog = False
  For i = 0 To WScript.Arguments.Count - 1
    argument = WScript.Arguments.Item(i)
    colon = InStr(argument, ":")
    If colon = 0 Then colon = Len(argument) + 1
    name = LCase(Left(argument, colon - 1))
    value = Mid(argument, colon + 1)
    Select Case name
      Case "/verbindung" connectionString = value
      Case "/anwendung" application = CLng(value)
      Case "/benutzer" user = value
      Case "/dialog" withDialog = True
      Case Else connectionString = ""
    End Select
    If name = "/verbindung" And value = "" Then Exit For
  Next
  If connectionString <> "" Then Exit Sub
  WScript.Echo "Aufruf: cscript //nologo selftest.vbs /verbindung:""..."" " & _
               "[/anwendung:1] [/benutzer:Name] [/dialog]"
  WScript.Quit 255
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
    ' Bei -1 (unbekannt) sieht die Komponente selbst nach. Jede andere Zahl gilt ihr als Treffer: dann
    ' waeren alle Zuordnungen aktiv.
    Expect "Abfrage ohne Treffer: 0 oder -1 betroffene Saetze", affected = 0 Or affected = -1, affected
    rows.Close
  End If
  command.CommandText = "SELECT strUserName_PK FROM tblUser"
  Set rows = command.Execute(affected)
  If Succeeded("Execute einer Abfrage mit Treffern (tblUser)") Then
    If Not rows.EOF Then
      Expect "Abfrage mit Treffern: nicht 0 betroffene Saetze", affected <> 0, affected
    End If
    rows.Close
  End If
End Sub

' --- Lesen

Sub CheckReading
  Dim rows, name, text
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
  For Each name In Array("Buchungskreis", "StartWert", "AktuellerWert", "EndWert", "SortierIndex")
    CheckWhole rows, name
  Next
  For Each name In Array("NSchl", "NBezeichnung", "IstNSchlVon", "Maske")
    CheckText rows, name
  Next
  CheckFlag rows, "Aktiviert"
  rows.Close
  Err.Clear
End Sub

Function ShortNumber(number)
  ShortNumber = number And &HFFFF&
End Function

' Liest ein Feld; sagt, ob etwas darin steht. Jeder Wert wird zuerst gelesen und dann beurteilt: was
' beim Beurteilen scheitert, weicht ab.
Function HasValue(rows, name, value)
  On Error Resume Next
  HasValue = False
  value = rows.Fields(name).Value
  If Succeeded("Feld " & name) Then HasValue = Not IsNull(value)
End Function

Sub CheckWhole(rows, name)
  Dim value, isWhole
  If Not HasValue(rows, name, value) Then Exit Sub
  On Error Resume Next
  isWhole = False
  isWhole = (CDbl(value) = CLng(value))
  Err.Clear
  Expect name & " ist eine ganze Zahl (" & TypeName(value) & ")", isWhole, value
End Sub

Sub CheckText(rows, name)
  Dim value, isText
  If Not HasValue(rows, name, value) Then Exit Sub
  On Error Resume Next
  isText = False
  If VarType(value) = vbString Then isText = (value = RTrim(value))
  Expect name & " ist Text ohne Leerzeichen am Ende", isText, TypeName(value) & " '" & value & "'"
End Sub

Sub CheckFlag(rows, name)
  Dim value, isFlag
  If Not HasValue(rows, name, value) Then Exit Sub
  On Error Resume Next
  isFlag = (VarType(value) = vbBoolean)
  If Not isFlag Then isFlag = (CLng(value) = 0 Or CLng(value) = -1)
  Err.Clear
  Expect name & " ist Wahrheitswert, 0 oder -1", isFlag, TypeName(value) & " " & value
End Sub

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

' Prueft, wie viele Saetze des Selbsttests da sind.
Sub ExpectTestRanges(what, wanted)
  Dim found
  On Error Resume Next
  found = -1
  found = Count("SELECT COUNT(*) AS Anzahl FROM Nummernkreise WHERE Buchungskreis=-99")
  If Err.Number <> 0 Then
    Succeeded what
  Else
    Expect what, found = wanted, found
  End If
End Sub

Sub CheckTransactions
  Section "Transaktionen"
  On Error Resume Next
  host.BeginTrans
  canWrite = Succeeded("BeginTrans")
  If Not canWrite Then Exit Sub
  InsertTestRange
  Succeeded "INSERT in Nummernkreise mit Aktiviert als -1"
  ExpectTestRanges "In der Transaktion ist der Satz zu sehen", 1
  host.RollbackTrans
  canWrite = Succeeded("RollbackTrans")
  ExpectTestRanges "Danach ist er fort", 0
  host.RollbackTrans
  Expect "RollbackTrans ohne Transaktion ist ein Fehler", Err.Number <> 0, "kein Fehler"
  Err.Clear
End Sub

Sub CheckFailures
  Dim affected
  If Not canWrite Then Exit Sub
  Section "Fehler in einer Transaktion"
  On Error Resume Next
  host.BeginTrans
  If Not Succeeded("BeginTrans") Then Exit Sub
  InsertTestRange
  Succeeded "Erster INSERT"
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
  ExpectTestRanges "Nichts ist geblieben", 0
  Err.Clear
End Sub

' Die Anweisungen, mit denen gespeichert wird, samt denen, die zuvor loeschen.
Sub CheckSaving
  If Not canWrite Then Exit Sub
  Section "Anweisungen des Speicherns"
  On Error Resume Next
  host.BeginTrans
  If Not Succeeded("BeginTrans") Then Exit Sub
  Run "DELETE FROM Nummernkreise, verschachtelt", _
      "DELETE FROM Nummernkreise WHERE NOT EXISTS (SELECT * FROM Nummernkreis_Buchungskreise " & _
      "WHERE Nummernkreise.Buchungskreis = Nummernkreis_Buchungskreise.Buchungskreis " & _
      "AND Herkunft='VXT') AND NSchl <> 'LM' AND NSchl <> 'AF' AND (Buchungskreis <> 0 OR " & _
      "(IstNSchlVon <> '' AND IstNSchlVon IS NOT NULL))"
  Run "DELETE FROM Nummernkreis_Zuordnung", _
      "DELETE FROM Nummernkreis_Zuordnung WHERE Herkunft='" & Origin & "'"
  Run "INSERT in Nummernkreis_Zuordnung", _
      "INSERT INTO Nummernkreis_Zuordnung (Buchungskreis, NSchl, Benutzer, Herkunft) " & _
      "VALUES (-99, 'VXTEST', 'ALL','" & Origin & "')"
  host.RollbackTrans
  Succeeded "RollbackTrans"
End Sub

Sub Run(what, statement)
  Dim affected
  On Error Resume Next
  command.CommandText = statement
  command.Execute affected
  Succeeded what
End Sub

' Nach "Buchungskreise" liest die zweite Verbindung, was die erste in ihrer Transaktion geschrieben
' hat. Wo das warten muss, haengt der Dialog.
Sub CheckReadingBesideTransaction
  Dim rows
  If Not canWrite Then Exit Sub
  Section "Lesen auf der zweiten Verbindung, waehrend die erste geschrieben hat"
  On Error Resume Next
  Set work = CreateObject("ADODB.Connection")
  work.ConnectionString = host.ConnectionString
  work.CursorLocation = useServer
  work.IsolationLevel = isolated
  work.CommandTimeout = 5
  work.Open "", "", "", unspecified
  host.BeginTrans
  Run "INSERT in Nummernkreis_Buchungskreise auf der ersten", _
      "INSERT INTO Nummernkreis_Buchungskreise (Buchungskreis, Beschreibung, Herkunft) " & _
      "VALUES (-99, 'VXTEST', '" & Origin & "')"
  Err.Clear
  Set rows = work.Execute("SELECT COUNT(*) AS Anzahl FROM Nummernkreis_Buchungskreise")
  If Succeeded("SELECT auf der zweiten, binnen 5 Sekunden") Then rows.Close
  Set rows = Nothing
  host.RollbackTrans
  work.Close
  Set work = Nothing
  Err.Clear
End Sub

' Sonderkreise werden Satz fuer Satz ueber die Datensatzgruppe geschrieben.
Sub CheckSpecialRanges
  Dim rows, flag, wanted
  If Not canWrite Then Exit Sub
  Section "Sonderkreise, Satz fuer Satz geschrieben"
  On Error Resume Next
  host.BeginTrans
  If Not Succeeded("BeginTrans") Then Exit Sub
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
      wanted = True
      If Not IsNull(flag) Then wanted = Not CBool(flag)
      rows.Fields("Aktiviert").Value = wanted
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
  Fingerprint = Fingerprint & Total("StartWert") & " " & Total("AktuellerWert") & " " & Total("EndWert")
End Function

Function Total(column)
  Dim rows
  Set rows = host.Execute("SELECT SUM(" & column & ") AS Summe FROM Nummernkreise")
  Total = CStr(rows.Fields("Summe").Value & "")
  rows.Close
End Function
