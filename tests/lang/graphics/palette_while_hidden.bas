10 ' With no page shown a new palette waits until a page is.
20 SCREEN 3:CLS 3:LINE(50,50)-(300,300),1,BF,4:SCREEN ,,,0:COLOR=(1,6):COLOR=(4,2):SCREEN ,,,1
30 SCREEN ,,,0:COLOR=(1,5):LINE(320,50)-(600,300),4,BF,1
