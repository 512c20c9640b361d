/* genicamcheck - structural checker for Nodescope's GenICam XML files.
 *
 * Build (by hand, outside the source tree):
 *   gcc -std=c11 -Wall -Wextra -O1 tools/genicamcheck/genicamcheck.c \
 *       $(pkg-config --cflags --libs aravis-0.8) -o /tmp/genicamcheck
 *
 * Usage:
 *   genicamcheck [options] FILE.xml [FEATURE...]
 *
 *   -m, --map NAME          node map that FILE.xml implements in use-case files
 *                           (CameraDevice, StreamGrabber0, ...); default CameraDevice
 *   -u, --usecases FILE     check every "@<map>/<name>" of the given map found in
 *                           the JSON file (crude string scan); may be repeated
 *   --min-features N        fail with fewer reachable features
 *   --min-categories N      fail with fewer categories (Root not counted)
 *   --min-depth N           fail if no feature is N levels below Root (Root = 0)
 *   --all-visibilities      fail unless Beginner, Expert, Guru and Invisible are used
 *   --representations LIST  fail unless every representation in the comma
 *                           separated LIST is used (Linear, Logarithmic, Boolean,
 *                           PureNumber, HexNumber, IPV4Address, MACAddress) by an
 *                           Integer, and Linear/Logarithmic/PureNumber by a Float
 *                           when prefixed with "Float:" (e.g. Float:Logarithmic)
 *   -d, --defaults FILE     evaluate on an in-memory device: apply the defaults
 *                           file (Name=Value lines, access checks off), then read
 *                           back every reachable feature and check its range
 *   -s, --script FILE       after the defaults, run a scenario script (see below)
 *   -c, --cache MODE        register cache policy during evaluation: debug
 *                           (default; Aravis reads the device anyway and prints
 *                           "Incorrect cache value" on stale caches), enable, disable
 *   -t, --tree              print the category tree
 *
 * Without --defaults there is no device, so nothing that needs a register
 * value is evaluated; the structural checks still run.
 *
 * Script lines (# comments allowed):
 *   set NAME=VALUE            write through the feature API, access checks on
 *   poke NAME=VALUE           write with access checks off (like the defaults)
 *   exec NAME                 execute a command
 *   expect NAME=VALUE         value as string must match
 *   locked NAME | unlocked NAME | available NAME | unavailable NAME
 *   implemented NAME | unimplemented NAME
 *   max NAME=VALUE | min NAME=VALUE     integer bounds
 *   entries NAME=A,B,C        exact list of available enumeration entries
 *
 * Exit status: 0 when every check passed, 1 otherwise.
 */

#include <arv.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* ------------------------------------------------------------------------ */
/* In-memory device: sparse little endian memory, all zero at start.        */

typedef struct {
	ArvDevice parent;
	GHashTable *pages; /* page index -> 4 KiB block */
	ArvGc *genicam;
} MemDevice;

typedef struct {
	ArvDeviceClass parent_class;
} MemDeviceClass;

GType mem_device_get_type (void);
G_DEFINE_TYPE (MemDevice, mem_device, ARV_TYPE_DEVICE)

#define PAGE_SIZE 4096u

static guint8 *
mem_page (MemDevice *self, guint64 page)
{
	guint8 *p = g_hash_table_lookup (self->pages, &page);

	if (p == NULL) {
		guint64 *key = g_new (guint64, 1);

		*key = page;
		p = g_malloc0 (PAGE_SIZE);
		g_hash_table_insert (self->pages, key, p);
	}
	return p;
}

static gboolean
mem_read_memory (ArvDevice *device, guint64 address, guint32 size, void *buffer, GError **error)
{
	MemDevice *self = (MemDevice *) device;
	guint32 i;

	(void) error;
	for (i = 0; i < size; i++)
		((guint8 *) buffer)[i] = mem_page (self, (address + i) / PAGE_SIZE)[(address + i) % PAGE_SIZE];
	return TRUE;
}

static gboolean
mem_write_memory (ArvDevice *device, guint64 address, guint32 size, void *buffer, GError **error)
{
	MemDevice *self = (MemDevice *) device;
	guint32 i;

	(void) error;
	for (i = 0; i < size; i++)
		mem_page (self, (address + i) / PAGE_SIZE)[(address + i) % PAGE_SIZE] = ((guint8 *) buffer)[i];
	return TRUE;
}

static gboolean
mem_read_register (ArvDevice *device, guint64 address, guint32 *value, GError **error)
{
	guint8 b[4];

	if (!mem_read_memory (device, address, 4, b, error))
		return FALSE;
	*value = b[0] | (b[1] << 8) | (b[2] << 16) | ((guint32) b[3] << 24);
	return TRUE;
}

static gboolean
mem_write_register (ArvDevice *device, guint64 address, guint32 value, GError **error)
{
	guint8 b[4] = { value & 0xff, (value >> 8) & 0xff, (value >> 16) & 0xff, value >> 24 };

	return mem_write_memory (device, address, 4, b, error);
}

static ArvGc *
mem_get_genicam (ArvDevice *device)
{
	return ((MemDevice *) device)->genicam;
}

static void
mem_device_finalize (GObject *object)
{
	MemDevice *self = (MemDevice *) object;

	g_hash_table_unref (self->pages);
	G_OBJECT_CLASS (mem_device_parent_class)->finalize (object);
}

static void
mem_device_init (MemDevice *self)
{
	self->pages = g_hash_table_new_full (g_int64_hash, g_int64_equal, g_free, g_free);
}

static void
mem_device_class_init (MemDeviceClass *klass)
{
	ArvDeviceClass *device_class = ARV_DEVICE_CLASS (klass);

	G_OBJECT_CLASS (klass)->finalize = mem_device_finalize;
	device_class->read_memory = mem_read_memory;
	device_class->write_memory = mem_write_memory;
	device_class->read_register = mem_read_register;
	device_class->write_register = mem_write_register;
	device_class->get_genicam = mem_get_genicam;
}

/* ------------------------------------------------------------------------ */
/* Bookkeeping                                                               */

static int n_failures = 0;

static void
fail (const char *fmt, ...) G_GNUC_PRINTF (1, 2);

static void
fail (const char *fmt, ...)
{
	va_list args;

	va_start (args, fmt);
	printf ("FAIL: ");
	vprintf (fmt, args);
	printf ("\n");
	va_end (args);
	n_failures++;
}

static const char *visibility_names[] = { "Invisible", "Guru", "Expert", "Beginner" };
static const char *representation_names[] = { "Linear", "Logarithmic", "Boolean", "PureNumber",
					       "HexNumber", "IPV4Address", "MACAddress" };

typedef struct {
	ArvGc *genicam;
	GHashTable *features;      /* name -> depth (reachable, non-category) */
	GPtrArray *feature_order;  /* names in walk order */
	GHashTable *categories;    /* name -> depth */
	GHashTable *helpers;       /* registers, SwissKnifes... listed in categories */
	int max_category_depth;
	int max_feature_depth;
	int visibility[4];
	int int_repr[7];
	int float_repr[7];
	int float_notation[3];
	gboolean print_tree;
} Walk;

static const char *
node_tag (ArvGcNode *node)
{
	return arv_dom_node_get_node_name (ARV_DOM_NODE (node));
}

static void
walk_category (Walk *w, const char *name, int depth, GHashTable *path)
{
	ArvGcNode *node = arv_gc_get_node (w->genicam, name);
	const GSList *iter;

	if (node == NULL) {
		fail ("category member '%s' does not exist", name);
		return;
	}
	if (!ARV_IS_GC_CATEGORY (node)) {
		static const char *helpers[] = { "IntReg", "MaskedIntReg", "FloatReg", "StringReg", "Register",
						 "StructReg", "IntSwissKnife", "SwissKnife", "IntConverter",
						 "Converter", "Port", NULL };
		ArvGcFeatureNode *f = ARV_GC_FEATURE_NODE (node);
		int v = arv_gc_feature_node_get_visibility (f);

		for (int h = 0; helpers[h] != NULL; h++)
			if (strcmp (node_tag (node), helpers[h]) == 0) {
				/* Hidden helper nodes are not features, even when listed. */
				if (!g_hash_table_contains (w->helpers, name))
					g_hash_table_add (w->helpers, (gpointer) name);
				return;
			}

		if (w->print_tree)
			printf ("%*s%s [%s]\n", depth * 2, "", name, node_tag (node));
		if (g_hash_table_contains (w->features, name))
			return;
		g_hash_table_insert (w->features, (gpointer) name, GINT_TO_POINTER (depth));
		g_ptr_array_add (w->feature_order, (gpointer) name);
		if (depth > w->max_feature_depth)
			w->max_feature_depth = depth;
		if (v >= 0 && v < 4)
			w->visibility[v]++;
		else
			w->visibility[3]++; /* default is Beginner */
		if (ARV_IS_GC_INTEGER (node) && strcmp (node_tag (node), "Integer") == 0) {
			int r = arv_gc_integer_get_representation (ARV_GC_INTEGER (node));
			w->int_repr[r >= 0 && r < 7 ? r : 0]++;
		} else if (ARV_IS_GC_FLOAT (node) && strcmp (node_tag (node), "Float") == 0) {
			int r = arv_gc_float_get_representation (ARV_GC_FLOAT (node));
			int n = arv_gc_float_get_display_notation (ARV_GC_FLOAT (node));
			w->float_repr[r >= 0 && r < 7 ? r : 0]++;
			w->float_notation[n >= 0 && n < 3 ? n : 0]++;
		}
		return;
	}

	if (g_hash_table_contains (path, name)) {
		fail ("category cycle through '%s'", name);
		return;
	}
	if (w->print_tree)
		printf ("%*s%s/\n", depth * 2, "", name);
	if (!g_hash_table_contains (w->categories, name))
		g_hash_table_insert (w->categories, (gpointer) name, GINT_TO_POINTER (depth));
	if (depth > w->max_category_depth)
		w->max_category_depth = depth;
	g_hash_table_add (path, (gpointer) name);
	for (iter = arv_gc_category_get_features (ARV_GC_CATEGORY (node)); iter != NULL; iter = iter->next)
		walk_category (w, iter->data, depth + 1, path);
	g_hash_table_remove (path, name);
}

/* Census of every node in the document, dangling references, duplicates. */

typedef struct {
	ArvGc *genicam;
	GHashTable *tags;        /* tag -> count */
	int n_nodes;
	int n_dangling;
	int n_duplicates;
} Census;

static const char *
text_of (ArvDomNode *node)
{
	ArvDomNode *child = arv_dom_node_get_first_child (node);

	if (child != NULL && ARV_IS_DOM_CHARACTER_DATA (child))
		return arv_dom_character_data_get_data (ARV_DOM_CHARACTER_DATA (child));
	return "";
}

static void
census_node (Census *c, ArvDomNode *node, const char *owner)
{
	ArvDomNode *child;

	if (ARV_IS_GC_FEATURE_NODE (node)) {
		const char *tag = arv_dom_node_get_node_name (node);
		const char *name = arv_gc_feature_node_get_name (ARV_GC_FEATURE_NODE (node));
		int *count = g_hash_table_lookup (c->tags, tag);

		if (count == NULL) {
			count = g_new0 (int, 1);
			g_hash_table_insert (c->tags, g_strdup (tag), count);
		}
		(*count)++;
		c->n_nodes++;
		if (name != NULL && strcmp (tag, "EnumEntry") != 0 &&
		    arv_gc_get_node (c->genicam, name) != ARV_GC_NODE (node)) {
			fail ("node name '%s' is used more than once", name);
			c->n_duplicates++;
		}
		owner = name != NULL ? name : tag;
	} else if (ARV_IS_GC_PROPERTY_NODE (node)) {
		ArvGcPropertyNode *p = ARV_GC_PROPERTY_NODE (node);

		if (arv_gc_property_node_get_node_type (p) > ARV_GC_PROPERTY_NODE_TYPE_P_UNKNONW &&
		    arv_gc_property_node_get_linked_node (p) == NULL) {
			fail ("%s: <%s> refers to unknown node '%s'", owner,
			      arv_dom_node_get_node_name (node), text_of (node));
			c->n_dangling++;
		}
	}
	for (child = arv_dom_node_get_first_child (node); child != NULL; child = arv_dom_node_get_next_sibling (child))
		census_node (c, child, owner);
}

/* Follow pValue links looking for cycles. */
static void
check_pvalue_cycles (ArvGc *genicam, GPtrArray *names)
{
	guint i;

	for (i = 0; i < names->len; i++) {
		ArvGcNode *node = arv_gc_get_node (genicam, g_ptr_array_index (names, i));
		GHashTable *seen = g_hash_table_new (g_direct_hash, g_direct_equal);

		while (node != NULL) {
			ArvDomNode *child;
			ArvGcNode *next = NULL;

			if (g_hash_table_contains (seen, node)) {
				fail ("pValue cycle starting at '%s'", (char *) g_ptr_array_index (names, i));
				break;
			}
			g_hash_table_add (seen, node);
			for (child = arv_dom_node_get_first_child (ARV_DOM_NODE (node)); child != NULL;
			     child = arv_dom_node_get_next_sibling (child))
				if (ARV_IS_GC_PROPERTY_NODE (child) &&
				    arv_gc_property_node_get_node_type (ARV_GC_PROPERTY_NODE (child)) ==
				    ARV_GC_PROPERTY_NODE_TYPE_P_VALUE)
					next = arv_gc_property_node_get_linked_node (ARV_GC_PROPERTY_NODE (child));
			node = next;
		}
		g_hash_table_unref (seen);
	}
}

/* ------------------------------------------------------------------------ */
/* Use cases                                                                  */

static int
check_usecases (ArvGc *genicam, const char *path, const char *map)
{
	char *text = NULL, *prefix, *p;
	int n = 0;

	if (!g_file_get_contents (path, &text, NULL, NULL)) {
		fail ("cannot read %s", path);
		return 0;
	}
	prefix = g_strdup_printf ("\"@%s/", map);
	for (p = strstr (text, prefix); p != NULL; p = strstr (p, prefix)) {
		char *start = p + strlen (prefix), *end = strchr (start, '"');
		char *name;

		if (end == NULL)
			break;
		name = g_strndup (start, end - start);
		if (arv_gc_get_node (genicam, name) == NULL)
			fail ("%s: @%s/%s does not exist", path, map, name);
		n++;
		g_free (name);
		p = end;
	}
	g_free (prefix);
	g_free (text);
	return n;
}

/* ------------------------------------------------------------------------ */
/* Evaluation on the in-memory device                                        */

static ArvGcFeatureNode *
feature (ArvGc *genicam, const char *name)
{
	ArvGcNode *node = arv_gc_get_node (genicam, name);

	if (node == NULL || !ARV_IS_GC_FEATURE_NODE (node)) {
		fail ("no feature '%s'", name);
		return NULL;
	}
	return ARV_GC_FEATURE_NODE (node);
}

static gboolean
set_value (ArvGc *genicam, const char *name, const char *value, gboolean check_access, const char *where)
{
	ArvGcFeatureNode *f = feature (genicam, name);
	GError *error = NULL;

	if (f == NULL)
		return FALSE;
	arv_gc_set_access_check_policy (genicam, check_access ? ARV_ACCESS_CHECK_POLICY_ENABLE :
					ARV_ACCESS_CHECK_POLICY_DISABLE);
	if (ARV_IS_GC_BOOLEAN (f)) {
		if (strcmp (value, "true") != 0 && strcmp (value, "false") != 0)
			fail ("%s: boolean %s needs true/false, got '%s'", where, name, value);
		else
			arv_gc_boolean_set_value (ARV_GC_BOOLEAN (f), strcmp (value, "true") == 0, &error);
	} else if (ARV_IS_GC_ENUMERATION (f)) {
		arv_gc_enumeration_set_string_value (ARV_GC_ENUMERATION (f), value, &error);
	} else {
		arv_gc_feature_node_set_value_from_string (f, value, &error);
	}
	arv_gc_set_access_check_policy (genicam, ARV_ACCESS_CHECK_POLICY_ENABLE);
	if (error != NULL) {
		fail ("%s: setting %s=%s: %s", where, name, value, error->message);
		g_error_free (error);
		return FALSE;
	}
	return TRUE;
}

static char *
get_value (ArvGc *genicam, ArvGcFeatureNode *f, GError **error)
{
	if (ARV_IS_GC_BOOLEAN (f)) {
		gboolean v = arv_gc_boolean_get_value (ARV_GC_BOOLEAN (f), error);
		return g_strdup (v ? "true" : "false");
	}
	if (ARV_IS_GC_ENUMERATION (f)) {
		const char *s = arv_gc_enumeration_get_string_value (ARV_GC_ENUMERATION (f), error);
		if (s == NULL && error != NULL && *error == NULL)
			g_set_error (error, ARV_GC_ERROR, 0, "value %" G_GINT64_FORMAT " matches no entry",
				     arv_gc_enumeration_get_int_value (ARV_GC_ENUMERATION (f), NULL));
		return g_strdup (s);
	}
	if (ARV_IS_GC_INTEGER (f))
		return g_strdup_printf ("%" G_GINT64_FORMAT, arv_gc_integer_get_value (ARV_GC_INTEGER (f), error));
	if (ARV_IS_GC_FLOAT (f))
		return g_strdup_printf ("%.15g", arv_gc_float_get_value (ARV_GC_FLOAT (f), error));
	if (ARV_IS_GC_STRING (f))
		return g_strdup (arv_gc_string_get_value (ARV_GC_STRING (f), error));
	(void) genicam;
	return NULL;
}

static int
apply_defaults (ArvGc *genicam, const char *path)
{
	char *text = NULL, **lines;
	int i, n = 0;

	if (!g_file_get_contents (path, &text, NULL, NULL)) {
		fail ("cannot read %s", path);
		return 0;
	}
	lines = g_strsplit (text, "\n", -1);
	for (i = 0; lines[i] != NULL; i++) {
		char *line = lines[i], *eq, *where;

		g_strchomp (line);
		if (line[0] == '\0' || line[0] == '#')
			continue;
		eq = strchr (line, '=');
		where = g_strdup_printf ("%s:%d", path, i + 1);
		if (eq == NULL)
			fail ("%s: no '='", where);
		else {
			*eq = '\0';
			if (set_value (genicam, line, eq + 1, FALSE, where))
				n++;
		}
		g_free (where);
	}
	g_strfreev (lines);
	g_free (text);
	return n;
}

static void
read_back (ArvGc *genicam, GPtrArray *names, int *n_read, int *n_skipped)
{
	guint i;

	for (i = 0; i < names->len; i++) {
		const char *name = g_ptr_array_index (names, i);
		ArvGcFeatureNode *f = ARV_GC_FEATURE_NODE (arv_gc_get_node (genicam, name));
		GError *error = NULL;
		char *value;

		if (ARV_IS_GC_COMMAND (f) || ARV_IS_GC_CATEGORY (f)) {
			(*n_skipped)++;
			continue;
		}
		if (!arv_gc_feature_node_is_implemented (f, &error) || error != NULL ||
		    !arv_gc_feature_node_is_available (f, &error) || error != NULL) {
			if (error != NULL) {
				fail ("%s: availability: %s", name, error->message);
				g_clear_error (&error);
			}
			(*n_skipped)++;
			continue;
		}
		if (arv_gc_feature_node_get_actual_access_mode (f) == ARV_GC_ACCESS_MODE_WO) {
			(*n_skipped)++;
			continue;
		}
		arv_gc_feature_node_is_locked (f, &error);
		if (error != NULL) {
			fail ("%s: lock state: %s", name, error->message);
			g_clear_error (&error);
		}
		value = get_value (genicam, f, &error);
		if (error != NULL) {
			fail ("%s: read: %s", name, error->message);
			g_clear_error (&error);
			continue;
		}
		(*n_read)++;
		if (ARV_IS_GC_INTEGER (f) && !ARV_IS_GC_ENUMERATION (f)) {
			gint64 v = arv_gc_integer_get_value (ARV_GC_INTEGER (f), NULL);
			gint64 mn = 0, mx = 0, inc = 1;

			mn = arv_gc_integer_get_min (ARV_GC_INTEGER (f), &error);
			if (error == NULL)
				mx = arv_gc_integer_get_max (ARV_GC_INTEGER (f), &error);
			if (error == NULL)
				inc = arv_gc_integer_get_inc (ARV_GC_INTEGER (f), &error);
			if (error != NULL) {
				fail ("%s: bounds: %s", name, error->message);
				g_clear_error (&error);
			} else if (v < mn || v > mx || (inc > 1 && (v - mn) % inc != 0))
				fail ("%s = %" G_GINT64_FORMAT " outside [%" G_GINT64_FORMAT ", %" G_GINT64_FORMAT
				      "] inc %" G_GINT64_FORMAT, name, v, mn, mx, inc);
		} else if (ARV_IS_GC_FLOAT (f)) {
			double v = arv_gc_float_get_value (ARV_GC_FLOAT (f), NULL);
			double mn = 0.0, mx = 0.0;

			mn = arv_gc_float_get_min (ARV_GC_FLOAT (f), &error);
			if (error == NULL)
				mx = arv_gc_float_get_max (ARV_GC_FLOAT (f), &error);
			if (error != NULL) {
				fail ("%s: bounds: %s", name, error->message);
				g_clear_error (&error);
			} else if (v < mn || v > mx)
				fail ("%s = %g outside [%g, %g]", name, v, mn, mx);
		}
		g_free (value);
	}
}

static void
run_script (ArvGc *genicam, const char *path)
{
	char *text = NULL, **lines;
	int i, n = 0;

	if (!g_file_get_contents (path, &text, NULL, NULL)) {
		fail ("cannot read %s", path);
		return;
	}
	lines = g_strsplit (text, "\n", -1);
	for (i = 0; lines[i] != NULL; i++) {
		char *line = g_strstrip (lines[i]), *arg, *eq, *where;
		ArvGcFeatureNode *f;
		GError *error = NULL;

		if (line[0] == '\0' || line[0] == '#')
			continue;
		where = g_strdup_printf ("%s:%d", path, i + 1);
		arg = strchr (line, ' ');
		if (arg == NULL) {
			fail ("%s: missing argument", where);
			g_free (where);
			continue;
		}
		*arg++ = '\0';
		eq = strchr (arg, '=');
		if (eq != NULL)
			*eq++ = '\0';
		n++;
		f = feature (genicam, arg);
		if (f == NULL) {
			g_free (where);
			continue;
		}
		if (strcmp (line, "set") == 0 || strcmp (line, "poke") == 0) {
			set_value (genicam, arg, eq ? eq : "", strcmp (line, "set") == 0, where);
		} else if (strcmp (line, "exec") == 0) {
			arv_gc_command_execute (ARV_GC_COMMAND (f), &error);
		} else if (strcmp (line, "expect") == 0) {
			char *v = get_value (genicam, f, &error);
			if (error == NULL && g_strcmp0 (v, eq) != 0)
				fail ("%s: %s is '%s', expected '%s'", where, arg, v, eq);
			g_free (v);
		} else if (strcmp (line, "locked") == 0 || strcmp (line, "unlocked") == 0) {
			gboolean l = arv_gc_feature_node_is_locked (f, &error);
			if (error == NULL && l != (line[0] == 'l'))
				fail ("%s: %s is %slocked", where, arg, l ? "" : "not ");
		} else if (strcmp (line, "available") == 0 || strcmp (line, "unavailable") == 0) {
			gboolean a = arv_gc_feature_node_is_available (f, &error);
			if (error == NULL && a != (line[0] == 'a'))
				fail ("%s: %s is %savailable", where, arg, a ? "" : "not ");
		} else if (strcmp (line, "implemented") == 0 || strcmp (line, "unimplemented") == 0) {
			gboolean a = arv_gc_feature_node_is_implemented (f, &error);
			if (error == NULL && a != (line[0] == 'i'))
				fail ("%s: %s is %simplemented", where, arg, a ? "" : "not ");
		} else if (strcmp (line, "max") == 0 || strcmp (line, "min") == 0) {
			gint64 v = line[1] == 'a' ? arv_gc_integer_get_max (ARV_GC_INTEGER (f), &error) :
				arv_gc_integer_get_min (ARV_GC_INTEGER (f), &error);
			if (error == NULL && (eq == NULL || v != g_ascii_strtoll (eq, NULL, 0)))
				fail ("%s: %s of %s is %" G_GINT64_FORMAT ", expected %s", where, line, arg, v, eq);
		} else if (strcmp (line, "entries") == 0) {
			guint k, n_values = 0;
			const char **values = arv_gc_enumeration_dup_available_string_values (ARV_GC_ENUMERATION (f),
											       &n_values, &error);
			GString *s = g_string_new (NULL);
			for (k = 0; k < n_values; k++)
				g_string_append_printf (s, "%s%s", k ? "," : "", values[k]);
			if (error == NULL && g_strcmp0 (s->str, eq) != 0)
				fail ("%s: entries of %s are '%s', expected '%s'", where, arg, s->str, eq);
			g_string_free (s, TRUE);
			g_free (values);
		} else
			fail ("%s: unknown script command '%s'", where, line);
		if (error != NULL) {
			fail ("%s: %s %s: %s", where, line, arg, error->message);
			g_error_free (error);
		}
		g_free (where);
	}
	printf ("script:      %d steps from %s\n", n, path);
	g_strfreev (lines);
	g_free (text);
}

/* ------------------------------------------------------------------------ */

static gboolean
has_representation (Walk *w, const char *wanted)
{
	gboolean is_float = g_str_has_prefix (wanted, "Float:");
	const char *name = is_float ? wanted + 6 : wanted;
	int i;

	for (i = 0; i < 7; i++)
		if (strcmp (name, representation_names[i]) == 0)
			return (is_float ? w->float_repr[i] : w->int_repr[i]) > 0;
	fail ("unknown representation '%s'", wanted);
	return FALSE;
}

static int
cmp_str (gconstpointer a, gconstpointer b)
{
	return strcmp (*(const char **) a, *(const char **) b);
}

int
main (int argc, char **argv)
{
	char *map = NULL, **usecases = NULL, *defaults = NULL, *script = NULL, *representations = NULL;
	char *cache = NULL;
	int min_features = 0, min_categories = 0, min_depth = 0;
	gboolean all_visibilities = FALSE, print_tree = FALSE;
	GOptionEntry entries[] = {
		{ "map", 'm', 0, G_OPTION_ARG_STRING, &map, "Node map name used in use-case files", "NAME" },
		{ "usecases", 'u', 0, G_OPTION_ARG_FILENAME_ARRAY, &usecases, "Use-case JSON file", "FILE" },
		{ "min-features", 0, 0, G_OPTION_ARG_INT, &min_features, "Minimum number of features", "N" },
		{ "min-categories", 0, 0, G_OPTION_ARG_INT, &min_categories, "Minimum number of categories", "N" },
		{ "min-depth", 0, 0, G_OPTION_ARG_INT, &min_depth, "Minimum feature depth below Root", "N" },
		{ "all-visibilities", 0, 0, G_OPTION_ARG_NONE, &all_visibilities, "Require all visibilities", NULL },
		{ "representations", 0, 0, G_OPTION_ARG_STRING, &representations, "Required representations", "LIST" },
		{ "defaults", 'd', 0, G_OPTION_ARG_FILENAME, &defaults, "Evaluate with this defaults file", "FILE" },
		{ "script", 's', 0, G_OPTION_ARG_FILENAME, &script, "Scenario script", "FILE" },
		{ "cache", 'c', 0, G_OPTION_ARG_STRING, &cache, "Register cache policy (debug, enable, disable)", "MODE" },
		{ "tree", 't', 0, G_OPTION_ARG_NONE, &print_tree, "Print the category tree", NULL },
		{ NULL }
	};
	GOptionContext *context = g_option_context_new ("FILE.xml [FEATURE...] - check a GenICam XML file");
	GError *error = NULL;
	char *xml = NULL;
	gsize size = 0;
	MemDevice *device = NULL;
	ArvGc *genicam;
	Walk w = { 0 };
	Census c = { 0 };
	GHashTableIter it;
	gpointer key, value;
	GPtrArray *tags;
	GHashTable *path;
	guint i;
	int k;

	g_option_context_add_main_entries (context, entries, NULL);
	if (!g_option_context_parse (context, &argc, &argv, &error) || argc < 2) {
		fprintf (stderr, "%s\n", error ? error->message : g_option_context_get_help (context, TRUE, NULL));
		return 2;
	}
	if (map == NULL)
		map = g_strdup ("CameraDevice");

	if (!g_file_get_contents (argv[1], &xml, &size, &error)) {
		fprintf (stderr, "%s\n", error->message);
		return 2;
	}
	if (defaults != NULL || script != NULL)
		device = g_object_new (mem_device_get_type (), NULL);
	genicam = arv_gc_new (device ? ARV_DEVICE (device) : NULL, xml, size);
	if (genicam == NULL) {
		printf ("FAIL: %s is not a GenICam document\n", argv[1]);
		return 1;
	}
	if (device != NULL)
		device->genicam = genicam;
	printf ("file:        %s (%" G_GSIZE_FORMAT " bytes)\n", argv[1], size);

	/* Node census, dangling references, duplicate names. */
	c.genicam = genicam;
	c.tags = g_hash_table_new_full (g_str_hash, g_str_equal, g_free, g_free);
	census_node (&c, ARV_DOM_NODE (arv_dom_document_get_document_element (ARV_DOM_DOCUMENT (genicam))), "");
	tags = g_ptr_array_new ();
	g_hash_table_iter_init (&it, c.tags);
	while (g_hash_table_iter_next (&it, &key, &value))
		g_ptr_array_add (tags, key);
	g_ptr_array_sort (tags, cmp_str);
	printf ("nodes:       %d (", c.n_nodes);
	for (i = 0; i < tags->len; i++)
		printf ("%s%s %d", i ? ", " : "", (char *) g_ptr_array_index (tags, i),
			*(int *) g_hash_table_lookup (c.tags, g_ptr_array_index (tags, i)));
	printf (")\n");
	printf ("references:  %d dangling, %d duplicate names\n", c.n_dangling, c.n_duplicates);

	/* Category walk. */
	if (arv_gc_get_node (genicam, "Root") == NULL || !ARV_IS_GC_CATEGORY (arv_gc_get_node (genicam, "Root"))) {
		printf ("FAIL: no category 'Root'\n");
		return 1;
	}
	w.genicam = genicam;
	w.print_tree = print_tree;
	w.features = g_hash_table_new (g_str_hash, g_str_equal);
	w.categories = g_hash_table_new (g_str_hash, g_str_equal);
	w.helpers = g_hash_table_new (g_str_hash, g_str_equal);
	w.feature_order = g_ptr_array_new ();
	path = g_hash_table_new (g_str_hash, g_str_equal);
	walk_category (&w, "Root", 0, path);
	check_pvalue_cycles (genicam, w.feature_order);

	printf ("features:    %u reachable from Root, deepest at level %d (Root = 0)\n",
		g_hash_table_size (w.features), w.max_feature_depth);
	if (g_hash_table_size (w.helpers) > 0)
		printf ("helpers:     %u registers/SwissKnifes/converters listed in categories, not counted\n",
			g_hash_table_size (w.helpers));
	printf ("categories:  %u below Root, deepest category at level %d\n",
		g_hash_table_size (w.categories) - 1, w.max_category_depth);
	printf ("visibility:  Beginner %d, Expert %d, Guru %d, Invisible %d\n",
		w.visibility[3], w.visibility[2], w.visibility[1], w.visibility[0]);
	printf ("Integer:    ");
	for (k = 0; k < 7; k++)
		printf (" %s %d%s", representation_names[k], w.int_repr[k], k < 6 ? "," : "\n");
	printf ("Float:      ");
	for (k = 0; k < 7; k++)
		printf (" %s %d%s", representation_names[k], w.float_repr[k], k < 6 ? "," : "");
	printf ("; notation Automatic %d, Fixed %d, Scientific %d\n",
		w.float_notation[0], w.float_notation[1], w.float_notation[2]);

	if ((int) g_hash_table_size (w.features) < min_features)
		fail ("%u features, at least %d required", g_hash_table_size (w.features), min_features);
	if ((int) g_hash_table_size (w.categories) - 1 < min_categories)
		fail ("%u categories, at least %d required", g_hash_table_size (w.categories) - 1, min_categories);
	if (w.max_feature_depth < min_depth)
		fail ("deepest feature at level %d, at least %d required", w.max_feature_depth, min_depth);
	if (all_visibilities)
		for (k = 0; k < 4; k++)
			if (w.visibility[k] == 0)
				fail ("visibility %s not used", visibility_names[k]);
	if (representations != NULL) {
		char **list = g_strsplit (representations, ",", -1);
		for (k = 0; list[k] != NULL; k++)
			if (!has_representation (&w, list[k]))
				fail ("representation %s not used", list[k]);
		g_strfreev (list);
	}

	/* Names given on the command line and in use-case files. */
	for (k = 2; k < argc; k++)
		if (arv_gc_get_node (genicam, argv[k]) == NULL)
			fail ("feature '%s' does not exist", argv[k]);
	if (argc > 2)
		printf ("names:       %d checked from the command line\n", argc - 2);
	for (k = 0; usecases != NULL && usecases[k] != NULL; k++)
		printf ("use cases:   %d names of @%s checked in %s\n",
			check_usecases (genicam, usecases[k], map), map, usecases[k]);

	/* Evaluation. */
	if (device != NULL) {
		int n_read = 0, n_skipped = 0;

		arv_gc_set_register_cache_policy (genicam,
						  g_strcmp0 (cache, "enable") == 0 ? ARV_REGISTER_CACHE_POLICY_ENABLE :
						  g_strcmp0 (cache, "disable") == 0 ? ARV_REGISTER_CACHE_POLICY_DISABLE :
						  ARV_REGISTER_CACHE_POLICY_DEBUG);
		arv_gc_set_range_check_policy (genicam, ARV_RANGE_CHECK_POLICY_ENABLE);
		if (defaults != NULL)
			printf ("defaults:    %d values applied from %s\n", apply_defaults (genicam, defaults), defaults);
		read_back (genicam, w.feature_order, &n_read, &n_skipped);
		printf ("evaluation:  %d features read back, %d skipped (commands, unavailable, write-only)\n",
			n_read, n_skipped);
		if (script != NULL)
			run_script (genicam, script);
	}

	printf ("result:      %s (%d failure%s)\n", n_failures ? "FAIL" : "PASS", n_failures, n_failures == 1 ? "" : "s");
	return n_failures ? 1 : 0;
}
