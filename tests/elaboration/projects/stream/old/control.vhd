-- What control was before: not part of the design any more.
entity control is
  port (obsolete : in bit);
end entity;
architecture rtl of control is
begin
end architecture;
