10 ' In a 200-line mode a new palette reaches the rows shown only.
20 SCREEN 3:CLS 3:LINE(0,0)-(639,399),1,BF:SCREEN 0:COLOR=(1,2):SCREEN 3
