-- Parts that no tool here can open.
entity top is port (a : in bit); end;
architecture rtl of top is
  signal s : bit; component sub is port (a : in bit); end component;
begin s <= a; u : sub port map (s); end;
`protect version = 1
`protect begin_protected
`protect data_block
aGVsbG8gd29ybGQ= "
`protect end_protected
entity other is port (b : in bit); end;
architecture rtl of other is
`protect begin_protected
c2lnbmFs
`protect end_protected
end;
--= top:top a s top/u:sub
