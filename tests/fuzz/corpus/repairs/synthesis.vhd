-- What synthesis leaves out, in the usual spellings.
-- pragma translate_off
library nowhere; use nowhere.all;
-- pragma translate_on
entity top is port (a : in bit; y : out bit); end;
architecture rtl of top is
  -- synthesis translate_off
  signal off1 : bit;
  -- synthesis translate_on
  signal quote : character := '"'; signal on1, \a"b\ : bit;
  --synopsys TRANSLATE_OFF
  signal off2 : bit := "--synopsys translate_on";
  --synopsys TRANSLATE_ON
begin
  -- rtl_synthesis off
  assert a = '0' report missing;
  -- rtl_synthesis on
  on1 <= a; y <= on1 when quote = '"' else '0';
end;
--= top:top a y on1 a"b quote[7:0]
