<?php

/**
 * Reads the published names.
 *
 * @return array Rows of "alias", "pubkey", "address" and "house", by alias. PHP makes whole numbers of keys like "123",
 *               so the alias as text is the row's own.
 */
function brasslet_rows() {
	return brasslet_rows_in( brasslet_stored()['text'] );
}

/**
 * Lists the published names as the record has them now.
 *
 * @return string[]
 */
function brasslet_aliases() {
	return array_column( brasslet_rows(), 'alias' );
}

// phpcs:disable WordPress.DB -- the record comes from the database itself, and brasslet_sql() prepares each statement.

/**
 * Reads the record as the database has it.
 *
 * Not get_option(): a persistent object cache may hold an address that has been replaced since, and to pay that one is
 * worse than one more query.
 *
 * @return array The record as "text", empty when there is none, and a "mark" of its bytes, null when there is none.
 */
function brasslet_stored() {
	// The database makes the mark: it has the bytes, whatever their character set becomes on the way to PHP.
	$sql = 'SELECT option_value AS text, MD5( option_value ) AS mark FROM {options} WHERE option_name = %s';
	$row = $GLOBALS['wpdb']->get_row( brasslet_sql( $sql, BRASSLET_OPTION ), ARRAY_A );
	return is_array( $row ) ? $row : array(
		'text' => '',
		'mark' => null,
	);
}

// phpcs:enable

/**
 * Reads the rows of a record.
 *
 * An early version kept a single row at the top level of the option. Such a record is read as it is, and becomes a list
 * of rows the next time that it is written.
 *
 * @param string $text The record.
 * @return array Rows by alias.
 */
function brasslet_rows_in( $text ) {
	$record = maybe_unserialize( $text );
	if ( ! is_array( $record ) ) {
		return array();
	}
	$stored = isset( $record['rows'] ) && is_array( $record['rows'] ) ? $record['rows'] : array( $record );
	$rows   = array();
	foreach ( $stored as $row ) {
		$alias = is_array( $row ) ? strtolower( brasslet_string( $row['alias'] ?? '' ) ) : '';
		if ( '' !== $alias ) {
			$rows[ $alias ] = array(
				'alias'   => $alias,
				'pubkey'  => brasslet_string( $row['pubkey'] ?? '' ),
				'address' => brasslet_string( $row['address'] ?? '' ),
				'house'   => brasslet_string( $row['house'] ?? '' ),
			);
		}
	}
	return $rows;
}

/**
 * Fills in a statement.
 *
 * @param string $sql       The statement, with "{options}" for the options table and "%s" for every value.
 * @param string ...$values The values.
 * @return string
 */
function brasslet_sql( $sql, ...$values ) {
	$wpdb = $GLOBALS['wpdb'];
	return $wpdb->prepare( str_replace( '{options}', $wpdb->options, $sql ), $values );
}

/**
 * The word by which the options table marks what is not loaded with every page; WordPress 6.6 has a new one.
 *
 * @return string
 */
function brasslet_not_autoloaded() {
	return function_exists( 'wp_autoload_values_to_autoload' ) ? 'off' : 'no';
}
