10 ' The player sleeps to the end of the long note; the beep waits for it.
20 PLAY "MBL1C":BEEP
