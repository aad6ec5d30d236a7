-- CRC-8 of a stream of bytes, highest bit first.
library ieee;
use ieee.std_logic_1164.all;

entity crc8 is
    generic (POLYNOMIAL : std_logic_vector(7 downto 0) := x"07");
    port (
        clk   : in  std_logic;
        rst   : in  std_logic;
        clear : in  std_logic;
        valid : in  std_logic;
        data  : in  std_logic_vector(7 downto 0);
        crc   : out std_logic_vector(7 downto 0));
end entity;

architecture rtl of crc8 is

    function next_crc(state, byte : std_logic_vector(7 downto 0)) return std_logic_vector is
        variable result : std_logic_vector(7 downto 0) := state xor byte;
    begin
        for i in 0 to 7 loop
            if result(7) = '1' then
                result := (result(6 downto 0) & '0') xor POLYNOMIAL;
            else
                result := result(6 downto 0) & '0';
            end if;
        end loop;
        return result;
    end function;

    signal remainder : std_logic_vector(7 downto 0);

begin

    crc <= remainder;

    process (clk)
    begin
        if rising_edge(clk) then
            if rst = '1' or clear = '1' then
                remainder <= (others => '0');
            elsif valid = '1' then
                remainder <= next_crc(remainder, data);
            end if;
        end if;
    end process;

end architecture;
