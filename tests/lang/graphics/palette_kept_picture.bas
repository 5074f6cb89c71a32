10 ' A picture keeps the colours of its palette when the mode brings a new one.
20 SCREEN 3:CLS 3:LINE(0,0)-(639,399),1,BF:COLOR=(1,2):COLOR ,,,,0
